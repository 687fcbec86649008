#pragma once

#include "core/session.h"

#include <filesystem>
#include <QDialog>

namespace orvel {

class Directory_Files;

// The open dialog of all documents: lists the files that match a mask such as "*.psm", or creates a new one.
class Form_PSM_Open : public QDialog {
    Q_OBJECT

public:
    Form_PSM_Open(Session& session, std::string mask, const std::filesystem::path& directory,
                  QWidget* parent = nullptr);

private:
    void Lay_Out(const std::filesystem::path& directory);
    void Open_File();
    void Open_New();

    Session& The_Session;
    std::string Mask;
    Directory_Files* Files = nullptr;
};

} // namespace orvel
