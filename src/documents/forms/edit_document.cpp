#include "documents/forms/edit_document.h"

#include "core/code_page.h"
#include "core/files.h"
#include "documents/unsaved_copy.h"
#include "files/forms/notes_under_edit.h"
#include "scenario/forms/klima.h"
#include "scenario/forms/szenario.h"
#include "substance/forms/form_psm_1.h"
#include "ui/forms/entries_under_edit.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <chrono>
#include <QBoxLayout>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLabel>
#include <QSessionManager>
#include <QTimer>

namespace orvel {

namespace {

constexpr std::chrono::milliseconds First_Copy(1'000), Late_First_Copy(5'000), Between_Copies(60'000);
constexpr int Rest = 100; // times as long as a look at a long document takes: it may have 24,000 days

struct Under_Edit {
    std::unique_ptr<Session> Documents;
    Document_Notes Notes;
};

// The documents and notes with what the boxes of an editor and of the forms opened from it hold.
Under_Edit With_Entries(const Session& session, const QDialog& editor)
{
    Under_Edit all{std::make_unique<Session>(session), {}};
    const auto take_over = [&](const QDialog& form) {
        if (const auto* entries = dynamic_cast<const Entries_Under_Edit*>(&form))
            entries->Take_Over_Entries(*all.Documents);
        if (const auto* notes = dynamic_cast<const Notes_Under_Edit*>(&form))
            notes->Take_Over_Notes(all.Notes);
    };
    take_over(editor);
    for (const auto* form : editor.findChildren<QDialog*>()) {
        if (form->isVisible())
            take_over(*form);
    }
    return all;
}

// A line below an editor that says why no copy can be kept, as long as that is so; it blocks nothing.
class Copy_Note {
public:
    explicit Copy_Note(QDialog& editor) : Editor(editor) {}

    void Show(const std::string& trouble)
    {
        if (!Line && !trouble.empty()) {
            Line = Named(new QLabel, "Copy_Note");
            Line->setWordWrap(true);
            Line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum); // a long path widens no window
            static_cast<QBoxLayout*>(Editor.layout())->addWidget(Line);
        }
        if (!Line)
            return;
        Line->setText("No copy of unsaved changes can be kept, so save often. " + QString::fromStdString(trouble));
        Line->setVisible(!trouble.empty());
    }

private:
    QDialog& Editor;
    QLabel* Line = nullptr;
};

// Keeps a copy of what an editor holds, soon after its first change, then once a minute, and when the desktop ends the
// session.
class Copy_Keeper : public QObject {
public:
    Copy_Keeper(Session& session, QDialog& editor, Unsaved_Copy& copy, Copy_Note& note)
        : The_Session(session),
          Editor(editor),
          Copy(copy),
          Note(note),
          Clock(new QTimer(&editor))
    {
        Clock->setObjectName("Copy_Clock");
        connect(Clock, &QTimer::timeout, this, &Copy_Keeper::Keep);
        connect(
            qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { Keep(); }, Qt::DirectConnection);
        Clock->start(Copy.Has_Copy() ? Between_Copies : First_Copy);
    }

private:
    void Keep()
    {
        QElapsedTimer look;
        look.start();
        const bool had_changes = Copy.Has_Copy();
        const auto all = With_Entries(The_Session, Editor);
        if (Copy.Keep(*all.Documents, all.Notes) || !Copy.Trouble().empty())
            Note.Show(Copy.Trouble());
        if (Copy.Has_Copy() != had_changes)
            Clock->start(Between_Copies);
        else if (!had_changes)
            Clock->start(std::clamp(std::chrono::milliseconds(look.elapsed() * Rest), First_Copy, Late_First_Copy));
    }

    Session& The_Session;
    QDialog& Editor;
    Unsaved_Copy& Copy;
    Copy_Note& Note;
    QTimer* Clock;
};

// Copies that cannot be searched keep nobody from editing.
std::optional<Message> Offer_Of(Unsaved_Copy& copy, const Under_Edit& as_in_file, Copy_Note& note)
try {
    return copy.Offer(*as_in_file.Documents, as_in_file.Notes);
} catch (const File_Error& error) {
    note.Show(error.what());
    return std::nullopt;
}

template <class Form> void Show_Unsaved(Form& form, [[maybe_unused]] Document_Notes notes)
{
    if constexpr (std::is_same_v<Form, Form_PSM_1>)
        form.Show_Unsaved(std::move(notes));
    else
        form.Show_Unsaved();
}

// Offers the copy of a document as it is in its file.
template <class Form> void Begin(Session& session, Form& form, Unsaved_Copy& copy, Copy_Note& note)
{
    auto as_in_file = With_Entries(session, form);
    copy.Begin(*as_in_file.Documents, as_in_file.Notes);
    const auto offer = Offer_Of(copy, as_in_file, note);
    if (!offer)
        return;
    const auto answer = session.Ask(*offer);
    if (answer == Button::No)
        copy.Drop_Offered();
    else if (answer != Button::Yes)
        copy.Leave_Offered();
    else if (copy.Take(session, as_in_file.Notes))
        Show_Unsaved(form, std::move(as_in_file.Notes));
}

// `left` is a copy to be edited as a document that is not there; empty for one that is.
template <class Form> void Edit(Session& session, Document_Kind kind, const std::filesystem::path& directory,
                                QWidget* parent, const std::filesystem::path& left)
{
    Unsaved_Copy copy(Place_Of_Unsaved_Copies(), kind, directory / Path_Of(session.Program.PSM_File));
    Document_Notes left_notes;
    if (!left.empty() && !copy.Take_Left(session, left_notes, left))
        return;
    Form form(session, directory, parent);
    Copy_Note note(form);
    if (left.empty())
        Begin(session, form, copy, note);
    else
        Show_Unsaved(form, std::move(left_notes));
    {
        const Copy_Keeper keeper(session, form, copy, note);
        form.exec();
    }
    copy.End();
}

using Editor = void (*)(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent,
                        const std::filesystem::path& left);

// In the order of Document_Kind.
constexpr std::array<Editor, 3> Editors = {Edit<Form_PSM_1>, Edit<Szenario>, Edit<Klima>};

} // namespace

void Edit_Document(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent)
{
    Editors[static_cast<std::size_t>(kind)](session, kind, directory, parent, {});
}

void Open_And_Edit(Session& session, const std::filesystem::path& file, QWidget* parent)
{
    const auto kind = Kind_Of(file);
    if (Open_Document(session, file) && kind)
        Edit_Document(session, *kind, file.parent_path(), parent);
}

void Edit_Left_Copy(Session& session, const Left_Copy& copy, QWidget* parent)
{
    if (Has_Document(copy))
        return Open_And_Edit(session, copy.Document, parent);
    const auto directory = copy.Document.parent_path();
    std::error_code ignored;
    session.Program.PSM_File = Shown_Name(copy.Document);
    Editors[static_cast<std::size_t>(copy.Kind)](
        session, copy.Kind, std::filesystem::is_directory(directory, ignored) ? directory : session.Program.App_Path,
        parent, copy.Copy);
}

} // namespace orvel
