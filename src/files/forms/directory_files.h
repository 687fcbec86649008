#pragma once

#include <filesystem>
#include <QWidget>
#include <string>

class QLineEdit;
class QListWidget;

namespace orvel {

// A directory, typed or chosen, and its files that match a mask: what the open dialog and the save dialog share.
class Directory_Files : public QWidget {
    Q_OBJECT

public:
    Directory_Files(const std::filesystem::path& directory, const std::string& mask, QWidget* parent = nullptr);

    const std::filesystem::path& Directory() const { return Place; }
    std::string Selected_Name() const; // empty where nothing is selected
    bool Is_Empty() const;
    void Select_First(); // unless one is selected
    void Focus_List();

    // Lists the files anew; the one of a name is selected, or the first.
    void Refresh(const std::string& name);
    void Search(const QString& part); // only names that hold this text

signals:
    void File_Clicked();
    void File_Double_Clicked();

protected:
    void keyPressEvent(QKeyEvent* event) override; // Enter in the directory's line is no press of the dialog's button

private:
    void Choose_Directory();
    void Directory_Typed();
    void Go_To(const std::filesystem::path& directory);

    std::filesystem::path Place;
    std::string Mask;
    QString Part;
    QLineEdit* Dir1 = nullptr;
    QListWidget* File1 = nullptr;
};

} // namespace orvel
