// What is typed in a detail form is in the copy of its document before Done is pressed.
#include "core/files.h"
#include "documents/documents.h"
#include "documents/forms/edit_document.h"
#include "substance/forms/editor_test.h"

#include <QTableView>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using Use = std::function<void(QWidget&)>;

// A button that opens the next form, and what makes it be there.
struct Step {
    QString Button;
    Use Before = [](QWidget&) {};
};

struct Typed {
    const char *Form, *File;
    std::vector<Step> Way; // from the editor to the form
    Use Type;
    double (*Stored)(const Session& session);
    double Value;
};

void PrintTo(const Typed& typed, std::ostream* out)
{
    *out << typed.Form;
}

// Types into a box without leaving it.
Use Into(const QString& name, const QString& text)
{
    return [=](QWidget& form) {
        auto* box = Find<QLineEdit>(form, name);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
    };
}

Use Into_Cell(const QString& grid_name, int row, int column, const QString& text)
{
    return [=](QWidget& form) {
        auto* grid = Find<QTableView>(form, grid_name);
        grid->setFocus();
        grid->setCurrentIndex(grid->model()->index(row, column));
        QTest::keyClicks(grid, text);
    };
}

Use Ticking(const QString& name)
{
    return [=](QWidget& form) {
        if (!Find<QAbstractButton>(form, name)->isChecked())
            Choose_Option(form, name);
    };
}

const Use Into_Half_Life = [](QWidget& form) {
    Choose_Option(form, "Option2");
    Into("Text2", "12.5")(form);
};

const Use With_Horizons = [](QWidget& form) {
    Choose_Option(form, "tiefenabhaengig_2");
    Retype(form, "Text_nhor", "2");
};

constexpr const char *Pesticide = "demo_D.psm", *Scenario = "focus/H_maize.sze";

const std::vector<Typed> All_Forms = {
    {"deg_dat",
     Pesticide,
     {{"Image2_5"}},
     Into_Half_Life,
     [](const Session& session) { return session.Pesticide.Degradation[1][5].Deg_Rate.Number(); },
     0.055452},
    {"kin_Sorption",
     Pesticide,
     {{"Label_AS"}, {"Command3"}},
     Into("s_f_neq", "0.375"),
     [](const Session& session) { return session.Pesticide.F_neq[1]; },
     0.375},
    {"KOC_PH",
     Pesticide,
     {{"Label_AS"}, {"Command2"}},
     Into("s_pKa", "4.25"),
     [](const Session& session) { return session.Pesticide.Sorp_pKa[1].Number(); },
     4.25},
    {"Plant_App",
     Pesticide,
     {{"Label_AS"}, {"Command1", Ticking("App_Flag2")}},
     Into("S_plt_washoff", "0.625"),
     [](const Session& session) { return session.Pesticide.Plant_Washoff.Number(); },
     0.625},
    {"Form_hor",
     Pesticide,
     {{"Label_AS"}, {"Command_hor", With_Horizons}},
     Into_Cell("GridHor", 1, 1, "7.5"),
     [](const Session& session) {
         return session.Pesticide.Horizons.size() < 3 ? 0 : session.Pesticide.Horizons[2].Hor_Kd[1].Number();
     },
     7.5},
    {"Form_appgrid",
     Pesticide,
     {{"Label_AS"}, {"S_Anwendung"}},
     Into_Cell("AppGrid", 0, 5, "0.875"),
     [](const Session& session) { return session.Pesticide.Applications[1][1].App_Rate; },
     0.875},
    {"Form_rot",
     Scenario,
     {{"Command3"}},
     Into("Text_har", "7"),
     [](const Session& session) { return double(session.Scenario.Rotation.at(0).SZE_Har_Year); },
     7},
    {"Form_DifCrop",
     Scenario,
     {{"Command3"}, {"Command6"}},
     Into("Text1", "77.5"),
     [](const Session& session) {
         const auto crop = static_cast<std::size_t>(session.Scenario.Rotation.at(0).SZE_Rot_Crop_Index) - 1;
         return session.Scenario.Crops.at(crop).SZE_Rot_Text1.Number();
     },
     77.5},
    {"Form_eros",
     Scenario,
     {{"Command_er", Ticking("Check_er")}},
     Into("Text2_er", "0.125"),
     [](const Session& session) { return session.Scenario.SZE_Eros_2.Number(); },
     0.125},
    {"Macro",
     Scenario,
     {{"Command_macro", Ticking("schnelle_Prozesse_1")}},
     Into("S_Ic", "12.5"),
     [](const Session& session) { return session.Scenario.SZE_Macro_Threshold; },
     12.5},
    {"form_soil_hor",
     Scenario,
     {{"Command4"}},
     Into_Cell("Grid_nhor", 0, 1, "33.5"),
     [](const Session& session) { return session.Scenario.Horizons.at(0).SZE_Hor_Thickness.Number(); },
     33.5},
};

// Clicks the way to a form; `opening` is called before the last click.
void Follow(QWidget& form, const std::vector<Step>& way, const std::function<void()>& opening, const Use& use)
{
    const auto& [button, before] = way.front();
    before(form);
    const std::vector<Step> rest(way.begin() + 1, way.end());
    if (rest.empty())
        opening();
    In_Modal([&](QWidget& next) { rest.empty() ? use(next) : Follow(next, rest, opening, use); });
    Find<QAbstractButton>(form, button)->click();
}

class Typed_Entries : public Editor_Test, public testing::WithParamInterface<Typed> {
protected:
    // The copy of a document under edit, when its time has come; nothing if there is none.
    static std::string Copied(const QWidget& editor)
    {
        Find<QTimer>(editor, "Copy_Clock")->start(0);
        QTest::qWait(50);
        const auto file = Copy_File();
        return file.empty() ? std::string() : Read_Whole(file);
    }

    static fs::path Copy_File()
    {
        const fs::path copies = fs::path(qgetenv("XDG_STATE_HOME").toStdString()) / "orvelsuite/unsaved";
        if (!fs::exists(copies))
            return {};
        for (const auto& entry : fs::recursive_directory_iterator(copies)) {
            if (entry.is_regular_file() && Kind_Of(entry.path()))
                return entry;
        }
        return {};
    }

    static double Copied_Value(const Typed& typed)
    {
        auto session = std::make_unique<Session>();
        session->Ask = [](const Message& message) { return message.Default; };
        EXPECT_TRUE(Open_Document(*session, Copy_File()));
        return typed.Stored(*session);
    }
};

} // namespace

TEST_P(Typed_Entries, Are_Copied_Before_Done_And_Not_After_Cancel)
{
    const auto& typed = GetParam();
    const fs::path file = Installation() / typed.File;
    auto session = std::make_unique<Session>();
    session->Ask = [](const Message&) { return Button::Yes; };
    session->Program.App_Path = Installation();
    ASSERT_TRUE(Open_Document(*session, file));
    bool used = false;
    In_Modal([&](QWidget& editor) {
        QApplication::setActiveWindow(&editor);
        std::string before;
        Follow(
            editor, typed.Way, [&] { before = Copied(editor); },
            [&](QWidget& form) {
                used = true;
                EXPECT_EQ(form.objectName(), typed.Form);
                EXPECT_EQ(Copied(editor), before) << "a form that only opened enters nothing";
                typed.Type(form);
                EXPECT_NE(typed.Stored(*session), typed.Value) << "watching changes nothing";
                ASSERT_NE(Copied(editor), before);
                EXPECT_EQ(Copied_Value(typed), typed.Value);
            });
        EXPECT_NE(typed.Stored(*session), typed.Value);
        Copied(editor);
        EXPECT_NE(Copied_Value(typed), typed.Value) << "the form was cancelled";
    });
    Edit_Document(*session, *Kind_Of(file), file.parent_path(), nullptr);
    EXPECT_TRUE(used);
    EXPECT_TRUE(Copy_File().empty());
}

INSTANTIATE_TEST_SUITE_P(Of, Typed_Entries, testing::ValuesIn(All_Forms),
                         [](const auto& tested) { return std::string(tested.param.Form); });

} // namespace orvel
