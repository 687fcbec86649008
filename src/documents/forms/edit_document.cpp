#include "documents/forms/edit_document.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/user_directories.h"
#include "documents/unsaved_copy.h"
#include "scenario/forms/klima.h"
#include "scenario/forms/szenario.h"
#include "substance/forms/form_psm_1.h"
#include "ui/forms/entries_under_edit.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QTimer>

namespace orvel {

namespace {

constexpr std::chrono::seconds First_Copy(5), Between_Copies(60);

std::filesystem::path Place_Of_Copies()
{
    const auto state = User_State_Directory();
    return state.empty() ? state : state / "unsaved";
}

// The session with what the boxes of an editor and of the forms opened from it hold.
std::unique_ptr<Session> With_Entries(const Session& session, const QDialog& editor)
{
    auto all = std::make_unique<Session>(session);
    const auto take_over = [&](const QDialog& form) {
        if (const auto* entries = dynamic_cast<const Entries_Under_Edit*>(&form))
            entries->Take_Over_Entries(*all);
    };
    take_over(editor);
    for (const auto* form : editor.findChildren<QDialog*>()) {
        if (form->isVisible())
            take_over(*form);
    }
    return all;
}

// Keeps a copy of what an editor holds, soon after its first change, then once a minute, and when the desktop ends the
// session.
class Copy_Keeper : public QObject {
public:
    Copy_Keeper(Session& session, QDialog& editor, Unsaved_Copy& copy)
        : The_Session(session),
          Editor(editor),
          Copy(copy),
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
        const bool had_changes = Copy.Has_Copy();
        Copy.Keep(*With_Entries(The_Session, Editor));
        if (Copy.Has_Copy() != had_changes)
            Clock->start(Between_Copies);
    }

    Session& The_Session;
    QDialog& Editor;
    Unsaved_Copy& Copy;
    QTimer* Clock;
};

// Copies that cannot be searched keep nobody from editing.
std::optional<Message> Offer_Of(Unsaved_Copy& copy, const Session& session)
try {
    return copy.Offer(session);
} catch (const File_Error& error) {
    Tell(session.Ask, "Unsaved changes", To_Code_Page(error.what()));
    return std::nullopt;
}

template <class Form>
void Edit(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent)
{
    Unsaved_Copy copy(Place_Of_Copies(), kind, directory / Path_Of(session.Program.PSM_File));
    Form form(session, directory, parent);
    const auto as_in_file = With_Entries(session, form);
    copy.Begin(*as_in_file);
    if (const auto offer = Offer_Of(copy, *as_in_file)) {
        const auto answer = session.Ask(*offer);
        if (answer == Button::No)
            copy.Drop_Offered();
        else if (answer != Button::Yes)
            copy.Leave_Offered();
        else if (copy.Take(session))
            form.Show_Unsaved();
    }
    {
        const Copy_Keeper keeper(session, form, copy);
        form.exec();
    }
    copy.End();
}

using Editor = void (*)(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent);

// In the order of Document_Kind.
constexpr std::array<Editor, 3> Editors = {Edit<Form_PSM_1>, Edit<Szenario>, Edit<Klima>};

} // namespace

void Edit_Document(Session& session, Document_Kind kind, const std::filesystem::path& directory, QWidget* parent)
{
    Editors[static_cast<std::size_t>(kind)](session, kind, directory, parent);
}

void Open_And_Edit(Session& session, const std::filesystem::path& file, QWidget* parent)
{
    const auto kind = Kind_Of(file);
    if (Open_Document(session, file) && kind)
        Edit_Document(session, *kind, file.parent_path(), parent);
}

} // namespace orvel
