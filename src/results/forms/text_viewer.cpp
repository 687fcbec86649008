#include "results/forms/text_viewer.h"

#include "core/files.h"
#include "core/forms/text_output.h"
#include "core/forms/widgets.h"
#include "core/text.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

constexpr int Columns_Shown = 100;
constexpr int Lines_Shown = 40;
constexpr const char* Echo_Caption = "Echo of Input Data";

} // namespace

Text_Viewer::Text_Viewer(const QString& name, const QString& caption, std::string_view text, QWidget* parent) : QDialog(parent)
{
    setObjectName(name);
    setWindowTitle(caption);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Ergebnis = Fixed_Pitch_Text("Ergebnis", caption);
    Ergebnis->setPlainText(Shown(text));
    Row = new QHBoxLayout;
    auto* all = new QVBoxLayout(this);
    all->addWidget(Ergebnis, 1);
    all->addLayout(Row);
    const QFontMetrics metrics(Ergebnis->font());
    resize(metrics.averageCharWidth() * Columns_Shown, metrics.lineSpacing() * Lines_Shown);
}

void Text_Viewer::Go_To_End()
{
    Ergebnis->moveCursor(QTextCursor::End);
    Ergebnis->ensureCursorVisible();
}

template <class Handler> void Text_Viewer::Add_Button(const QString& name, const QString& caption, Handler handler)
{
    Row->addWidget(Push_Button(name, caption, this, handler));
}

void Text_Viewer::Add_Copy_And_Print()
{
    Add_Button("Kopieren", "&Copy", [this] { Copy_Text(Ergebnis->toPlainText()); });
    Add_Button("Drucken", "&Print", [this] { Print_Text(*this, windowTitle(), Ergebnis->toPlainText()); });
}

void Text_Viewer::Add_Done(const QString& name, const QString& caption)
{
    Row->addStretch(1);
    Add_Button(name, caption, [this] { accept(); });
    findChild<QPushButton*>(name)->setDefault(true);
}

Echo_ORV::Echo_ORV(std::string_view echo, QWidget* parent) : Text_Viewer("Echo_ORV", Echo_Caption, echo, parent)
{
    Add_Copy_And_Print();
    Add_Done("OK", "&OK");
}

Fehler_in_Simulation::Fehler_in_Simulation(std::string_view echo, QWidget* parent) : Text_Viewer("Fehler_in_Simulation", Echo_Caption, echo, parent)
{
    Add_Copy_And_Print();
    Add_Done("OK", "&OK");
    if (Contains(echo, "ERROR"))
        Go_To_End();
}

Form_filetext::Form_filetext(const Session& session, const std::filesystem::path& file, std::string_view text, QWidget* parent)
    : Text_Viewer("Form_filetext", QString::fromStdString(file.filename().string()), text, parent)
{
    Add_Copy_And_Print();
    Add_Button("Save_As", "Save &as", [this, &session, file] { Save_As(session, file); });
    Add_Done("Done", "&Done");
}

// The whole file goes to the other place, also where only its first part is shown.
void Form_filetext::Save_As(const Session& session, const std::filesystem::path& file)
try {
    const QString target = QFileDialog::getSaveFileName(this, "Save as", QString::fromStdString(file.string()));
    if (!target.isEmpty() && std::filesystem::path(target.toStdString()) != file)
        Copy_Whole(file, target.toStdString());
} catch (const File_Error& error) {
    session.Ask({"Saving Input File", Bytes_Of(QString::fromUtf8(error.what()))});
}
