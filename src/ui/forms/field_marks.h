#pragma once

#include <functional>
#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <string>
#include <vector>

class QAction;

namespace orvel {

// Notes on the fields of a window and of all windows opened from it. A field has the entry "Source ..." in its context
// menu and on the key Shift+F2, and a mark at its left end while there is a note, with the note as its tip.
class Field_Marks : public QObject {
    Q_OBJECT

public:
    struct Access {
        std::function<QString(const std::string& key)> Note;               // what the tip says; empty: no note
        std::function<void(const std::string& key, QWidget* parent)> Edit; // opens a window, which may change any note
    };

    // The window owns the marks.
    Field_Marks(QWidget& window, Access access);

    // The marks of the window or of the one that it was opened from; nullptr if there are none.
    static Field_Marks* Of(const QWidget& window);

    void Watch(QLineEdit& field, std::string key);
    void Refresh(); // after notes changed

private:
    struct Watched {
        QPointer<QLineEdit> Field;
        std::string Key;
        QAction* Mark = nullptr;
    };
    void Edit(QLineEdit& field, const std::string& key);
    void Show_Mark(const Watched& watched) const;

    Access The_Access;
    std::vector<Watched> All;
};

} // namespace orvel
