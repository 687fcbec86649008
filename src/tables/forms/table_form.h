#pragma once

#include "core/session.h"
#include "tables/forms/building_form.h"
#include "tables/table_status.h"

#include <functional>

class QPlainTextEdit;

namespace orvel {

// One of a form's tables; both captions apply while it is in view. A form with one table has no switch.
struct Table_View {
    QString Control, Purpose; // name and accessible name of its text
    QString Form_Caption, Switch_Caption;
};

// A text per table, and what the user should know about them.
struct Built_Tables {
    std::vector<std::string> Texts;
    Table_Status Status;
};

struct Table_Kind {
    Ask_Function Ask;
    QString Name;                                // of the form
    int Columns = Table_Columns;                 // needed for a whole line
    QString First_Caption, First_Switch_Caption; // until the tables are built
    std::vector<Table_View> Views;               // the first one is shown first
    std::filesystem::path Run;                   // the run directory
    std::string Command;                         // the line of a shell that prints the same, UTF-8
    std::function<Built_Tables(const Progress&)> Build;
    std::function<void(QWidget&)> Open_Diagram;
    std::function<void(QWidget&)> Open_Months; // empty: no such button
};

// The tables of one run as texts, one visible at a time.
class Table_Form : public Building_Form {
    Q_OBJECT

public:
    Table_Form(Table_Kind kind, QWidget* parent);

protected:
    void Build(const Progress& progress) override { Tables = Kind.Build(progress); }
    void Show_Built() override;
    bool event(QEvent* event) override;

private:
    void Show_View(std::size_t view);
    QString All_Texts() const;

    const Table_Kind Kind;
    Built_Tables Tables;
    std::vector<QPlainTextEdit*> Ergebnis;
    QPushButton* Umschalter = nullptr;
    std::size_t In_View = 0;
};

} // namespace orvel
