#pragma once

#include "core/session.h"

#include <filesystem>
#include <QDialog>

class QHBoxLayout;
class QPlainTextEdit;

// One text of the system's files, to read, copy and print. Its text is bytes of Windows-1252.
class Text_Viewer : public QDialog {
    Q_OBJECT

public:
    Text_Viewer(const QString& name, const QString& caption, std::string_view text, QWidget* parent);

    void Go_To_End(); // as Ctrl+End does

protected:
    // A button in the row below the text, in the order of the calls.
    template <class Handler> void Add_Button(const QString& name, const QString& caption, Handler handler);
    void Add_Copy_And_Print();
    void Add_Done(const QString& name, const QString& caption); // the last one

private:
    QPlainTextEdit* Ergebnis = nullptr;
    QHBoxLayout* Row = nullptr;
};

// The echo of a run's input.
class Echo_ORV : public Text_Viewer {
public:
    explicit Echo_ORV(std::string_view echo, QWidget* parent = nullptr);
};

// The same for a run that failed: the engine writes its errors last, so the end is shown if there is one.
class Fehler_in_Simulation : public Text_Viewer {
public:
    explicit Fehler_in_Simulation(std::string_view echo, QWidget* parent = nullptr);
};

// Any input or output file; `text` is what is shown of it.
class Form_filetext : public Text_Viewer {
public:
    Form_filetext(const Session& session, const std::filesystem::path& file, std::string_view text, QWidget* parent = nullptr);

private:
    void Save_As(const Session& session, const std::filesystem::path& file);
};
