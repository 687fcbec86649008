#pragma once

#include "core/session.h"

#include <filesystem>
#include <optional>
#include <QDialog>
#include <string>

class QHBoxLayout;
class QPlainTextEdit;

namespace orvel {

// A text, given as bytes of Windows-1252, to read, copy and print.
class Text_Viewer : public QDialog {
    Q_OBJECT

public:
    Text_Viewer(const QString& name, const QString& caption, std::string_view text, Ask_Function ask, QWidget* parent);

    void Go_To_End(); // like Ctrl+End
    void Mark_Errors();
    void Offer_Command(const std::string& line); // a button that shows the line with which orvelctl prints the same

protected:
    // Adds a button to the row below the text, in the order of the calls.
    template <class Handler> void Add_Button(const QString& name, const QString& caption, Handler handler);
    void Add_Copy_And_Print();
    void Add_Done(const QString& name, const QString& caption); // the last one
    QPlainTextEdit& Text() const { return *Ergebnis; }

private:
    Ask_Function Ask;
    QPlainTextEdit* Ergebnis = nullptr;
    QHBoxLayout* Row = nullptr;
};

// The echo of a run's input.
class Echo_ORV : public Text_Viewer {
public:
    Echo_ORV(std::string_view echo, Ask_Function ask, QWidget* parent = nullptr);
};

// The same for a run that failed: the engine writes its errors last, so the end is shown if the echo holds one.
class Fehler_in_Simulation : public Text_Viewer {
public:
    Fehler_in_Simulation(std::string_view echo, Ask_Function ask, QWidget* parent = nullptr);
};

// Shows the echo of a run; one that cannot be read is told.
void Show_Echo(const Session& session, const std::filesystem::path& run_directory, QWidget* parent);
// That of a run that failed.
void Show_Failed_Echo(const Session& session, const std::filesystem::path& run_directory, QWidget* parent);

// Any input or output file; `text` is what is shown of it. It can be edited and saved if it is the file's whole text,
// unchanged.
class Form_filetext : public Text_Viewer {
public:
    Form_filetext(const Session& session, std::filesystem::path file, std::string text, QWidget* parent = nullptr);

    void done(int result) override; // asks before an edited text is given up

private:
    void Make_Editable();
    std::optional<std::string> Bytes();
    void Save();
    void Save_As();
    void Saved(std::string bytes);
    void Show_State();

    const Session& The_Session;
    std::filesystem::path File;
    std::string Stands_There; // the file's text, as far as this window knows
};

} // namespace orvel
