#pragma once

#include "core/session.h"
#include "documents/left_copies.h"

#include <QDialog>

class QPushButton;
class QTableWidget;

namespace orvel {

// The copies of unsaved changes that wait for this user, those of documents that are gone among them.
class Unsaved_List : public QDialog {
    Q_OBJECT

public:
    explicit Unsaved_List(Session& session, QWidget* parent = nullptr);

private:
    void Lay_Out();
    void Show_Copies();
    void Enable_Buttons();
    const Left_Copy* Selected() const;
    void Open_Copy();
    void Delete();

    Session& The_Session;
    std::vector<Left_Copy> Copies;
    QTableWidget* Grid = nullptr;
    QPushButton *Open_Button = nullptr, *Delete_Button = nullptr;
};

} // namespace orvel
