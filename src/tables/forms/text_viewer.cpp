#include "tables/forms/text_viewer.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/shell_line.h"
#include "core/text.h"
#include "ui/forms/command_box.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"
#include "ui/shown_file.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>

namespace orvel {

namespace {

constexpr int Text_Columns = 100;
constexpr int Text_Lines = 40;
constexpr const char* Echo_Caption = "Echo of Input Data";

// The characters that the code page lacks: where the first stands, and the numbers of all of them, as no box could show
// the characters themselves.
std::pair<int, QStringList> Not_Held(const QString& text)
{
    int first = -1;
    QStringList names;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype width = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        const QString character = text.mid(i, width);
        if (!From_Utf8(character.toStdString())) {
            first = first < 0 ? static_cast<int>(i) : first;
            const QString number = QString::number(character.toUcs4().value(0), 16).toUpper();
            names << "U+" + number.rightJustified(4, u'0');
        }
        i += width - 1;
    }
    names.removeDuplicates();
    return {first, names};
}

} // namespace

Text_Viewer::Text_Viewer(const QString& name, const QString& caption, std::string_view text, Ask_Function ask,
                         QWidget* parent)
    : QDialog(parent),
      Ask(std::move(ask))
{
    setObjectName(name);
    setWindowTitle(caption);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Ergebnis = Fixed_Pitch_Text("Ergebnis", caption);
    Ergebnis->setPlainText(Shown(text));
    Ergebnis->setTabChangesFocus(true);
    Row = new QHBoxLayout;
    auto* all = new QVBoxLayout(this);
    all->addWidget(Ergebnis, 1);
    all->addLayout(Row);
    Use_Form_Keys(*this);
    const QFontMetrics metrics(Ergebnis->font());
    resize(metrics.averageCharWidth() * Text_Columns, metrics.lineSpacing() * Text_Lines);
}

void Text_Viewer::Go_To_End()
{
    Ergebnis->moveCursor(QTextCursor::End);
    Ergebnis->ensureCursorVisible();
}

// Lines of the engine's errors stand out.
void Text_Viewer::Mark_Errors()
{
    QList<QTextEdit::ExtraSelection> lines;
    for (auto block = Ergebnis->document()->begin(); block.isValid(); block = block.next()) {
        if (!block.text().contains("ERROR") && !block.text().contains("E R R O R"))
            continue;
        QTextEdit::ExtraSelection line;
        line.cursor = QTextCursor(block);
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        line.format.setBackground(palette().highlight());
        line.format.setForeground(palette().highlightedText());
        lines << line;
    }
    Ergebnis->setExtraSelections(lines);
}

template <class Handler> void Text_Viewer::Add_Button(const QString& name, const QString& caption, Handler handler)
{
    Row->addWidget(Push_Button(name, caption, this, handler));
}

void Text_Viewer::Add_Copy_And_Print()
{
    Add_Button("Kopieren", "&Copy", [this] { Copy_Text(Ergebnis->toPlainText()); });
    Add_Button("Drucken", "&Print", [this] { Print_Text(*this, Ask, windowTitle(), Ergebnis->toPlainText()); });
}

void Text_Viewer::Add_Done(const QString& name, const QString& caption)
{
    Row->addStretch(1);
    Add_Button(name, caption, [this] { accept(); });
}

void Text_Viewer::Offer_Command(const std::string& line)
{
    Row->insertWidget(Row->count() - 2, Command_Button(this, [line] { return std::vector{line}; }));
}

namespace {

template <class Viewer>
void Show_Echo_In(const Session& session, const std::filesystem::path& run_directory, QWidget* parent)
{
    const auto echo = Shown_Echo(session, run_directory);
    if (!echo)
        return;
    Viewer viewer(*echo, session.Ask, parent);
    viewer.Offer_Command(Orvelctl_Line(session.Program.App_Path, {"echo", run_directory.string()}));
    viewer.exec();
}

} // namespace

void Show_Echo(const Session& session, const std::filesystem::path& run_directory, QWidget* parent)
{
    Show_Echo_In<Echo_ORV>(session, run_directory, parent);
}

void Show_Failed_Echo(const Session& session, const std::filesystem::path& run_directory, QWidget* parent)
{
    Show_Echo_In<Fehler_in_Simulation>(session, run_directory, parent);
}

Echo_ORV::Echo_ORV(std::string_view echo, Ask_Function ask, QWidget* parent)
    : Text_Viewer("Echo_ORV", Echo_Caption, echo, std::move(ask), parent)
{
    Add_Copy_And_Print();
    Add_Done("OK", "&OK");
}

Fehler_in_Simulation::Fehler_in_Simulation(std::string_view echo, Ask_Function ask, QWidget* parent)
    : Text_Viewer("Fehler_in_Simulation", Echo_Caption, echo, std::move(ask), parent)
{
    Add_Copy_And_Print();
    Add_Done("OK", "&OK");
    Mark_Errors();
    if (Contains(echo, "ERROR"))
        Go_To_End();
}

Form_filetext::Form_filetext(const Session& session, std::filesystem::path file, std::string text, QWidget* parent)
    : Text_Viewer("Form_filetext", "", text, session.Ask, parent),
      The_Session(session),
      File(std::move(file)),
      Stands_There(std::move(text))
{
    Add_Copy_And_Print();
    Add_Button("Save", "&Save", [this] { Save(); });
    Add_Button("Save_As", "Save &as", [this] { Save_As(); });
    Add_Done("Done", "&Done");
    if (Is_Shown_As_It_Is(Stands_There, File) && Bytes() == Stands_There)
        Make_Editable();
    Show_State();
}

void Form_filetext::Make_Editable()
{
    Text().setReadOnly(false);
    Text().setTextInteractionFlags(Qt::TextEditorInteraction);
    connect(Text().document(), &QTextDocument::modificationChanged, this, &Form_filetext::Show_State);
}

void Form_filetext::Show_State()
{
    const bool edited = Text().document()->isModified();
    setWindowTitle(QString::fromStdString(File.filename().string()) + "[*]");
    setWindowModified(edited);
    auto* save = findChild<QPushButton*>("Save");
    save->setEnabled(edited);
    save->setToolTip(
        Text().isReadOnly()
            ? "Only a part of the file, or its text with other letters, is shown: it can be copied but not edited."
            : "");
}

// Nothing if the code page lacks characters: the first is then selected, and the user has been told of all of them.
std::optional<std::string> Form_filetext::Bytes()
{
    const QString shown = Text().toPlainText();
    if (auto bytes = From_Utf8(shown.toStdString()))
        return Replace_All(std::move(*bytes), "\n", CrLf);
    const auto [first, names] = Not_Held(shown);
    QTextCursor cursor(Text().document());
    cursor.setPosition(first);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    Text().setTextCursor(cursor);
    Text().ensureCursorVisible();
    The_Session.Ask({"Saving Input File", "The file cannot hold " + Bytes_Of(names.join(", ")) +
                                              ". The first of these characters is marked."});
    return std::nullopt;
}

void Form_filetext::Save()
{
    auto bytes = Bytes();
    if (bytes && Save_Shown(The_Session, File, Stands_There, *bytes))
        Saved(std::move(*bytes));
}

// A file that was not edited is copied whole, even if only its first part is shown.
void Form_filetext::Save_As()
try {
    const QString chosen = QFileDialog::getSaveFileName(this, "Save as", QString::fromStdString(File.string()));
    const std::filesystem::path target = chosen.toStdString();
    if (target.empty())
        return;
    if (target == File)
        return Save();
    if (!Text().document()->isModified())
        return Copy_Whole(File, target);
    auto bytes = Bytes();
    if (!bytes || !Save_Shown_As(The_Session, target, *bytes))
        return;
    File = target;
    Saved(std::move(*bytes));
} catch (const File_Error& error) {
    The_Session.Ask({"Saving Input File", Bytes_Of(QString::fromUtf8(error.what()))});
}

void Form_filetext::Saved(std::string bytes)
{
    Stands_There = std::move(bytes);
    Text().document()->setModified(false);
    Show_State();
}

void Form_filetext::done(int result)
{
    if (!Text().document()->isModified() || May_Give_Up_Text(The_Session))
        Text_Viewer::done(result);
}

} // namespace orvel
