#pragma once

#include "core/session.h"

#include <filesystem>
#include <QDialog>

namespace orvel {

class Pathway_View;

// The editor of the pesticide document: its degradation scheme, and the way to the forms of substances and
// transformations.
class Form_PSM_1 : public QDialog {
    Q_OBJECT

public:
    // The directory is that of the save dialog.
    Form_PSM_1(Session& session, const std::filesystem::path& directory, QWidget* parent = nullptr);

    void reject() override; // asks before changes are given up

private:
    void Lay_Out();
    void Show_Scheme();
    void Edit_Substance(int i);
    void Edit_Transformation(int t);
    bool Save();
    void Save_And_Exit();

    Session& The_Session;
    std::filesystem::path Directory;
    Per_Substance<std::string> Captions;
    Pathway_View* View = nullptr;
};

} // namespace orvel
