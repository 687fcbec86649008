// Documents that are opened in the editor and saved without an edit.
#include "core/files.h"
#include "files/parsed.h"
#include "files/pesticide_example.h"
#include "substance/forms/editor_test.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Document_Unedited : public Editor_Test {
protected:
    static std::vector<std::string> Demonstration_Files()
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(Installation())) {
            if (entry.path().filename().string().starts_with("demo_"))
                names.push_back(entry.path().filename().string());
        }
        return names;
    }
};

} // namespace

TEST_F(Document_Unedited, A_Demonstration_File_Opened_And_Saved_Without_An_Edit_Keeps_Every_Byte)
{
    ASSERT_GE(Demonstration_Files().size(), 6U);
    for (const auto& name : Demonstration_Files()) {
        const auto copy = "copy_of_" + name;
        In_Editor(QString::fromStdString(name),
                  [&](QWidget& scheme) { Save(scheme, "ComSave", QString::fromStdString(copy)); });
        EXPECT_EQ(Read_Whole(Installation() / copy), Read_Whole(Installation() / name)) << name;
        fs::remove(Installation() / copy);
    }
}

// The fields print as typed, without the blanks of a printed number, and a calculated Henry constant is stored with its
// flag.
TEST_F(Document_Unedited, Forms_Accepted_Without_An_Edit_Change_No_Value_But_The_Calculated_Henry_Constant)
{
    for (const auto& name : Demonstration_Files()) {
        const auto saved = "done_of_" + name;
        In_Editor(QString::fromStdString(name), [&](QWidget& scheme) {
            for (const QString box : {"Label_AS", "Label_1_1", "Label_1_2", "Label_1_3", "Label_1_4", "Label_2_1",
                                      "Label_2_2", "Label_2_3", "Label_2_4"}) {
                if (!Find<QAbstractButton>(scheme, box)->toolTip().contains("nothing forms it"))
                    In_Form(scheme, box, [](QWidget& form) { Press(form, "Command_ok1"); });
            }
            Save(scheme, "ComSave", QString::fromStdString(saved));
        });

        const auto before = Parsed_PSM(Read_Whole(Installation() / name)),
                   after = Parsed_PSM(Read_Whole(Installation() / saved));
        after->Henry = before->Henry;
        EXPECT_TRUE(*after == *before) << name;
        fs::remove(Installation() / saved);
    }
}

TEST_F(Document_Unedited, Files_Of_Older_Forms_Opened_And_Saved_Without_An_Edit_Become_The_Present_Form_Alone)
{
    const auto example = Example_File();
    // The second point that the older form lacks is ten degrees higher: twice the solubility, four times the vapour
    // pressure, as in the example.
    const auto one_temperature = With(
        With(With(example, "  Hv        Temperature>", ">"), "0.05    0.1    98400    20 \r\n", "0.05    0.1 \r\n"),
        "0.00E+00     200    300   4.00E-05     0.05    0.1    98400    30 \r\n", "");
    const auto no_photolysis = With(
        example,
        "<PHOTODEGRADATION>\r\n<rate 1/n>  <I_Ref W/m\xB2>\r\n 0   500  0   500  0   500  0   500  0   500 \r\n", "");
    const auto mode = no_photolysis.find(" 5                 <0 = ");
    const auto no_depth_mode =
        With(no_photolysis, no_photolysis.substr(mode, no_photolysis.find('\n', mode) + 1 - mode), "");
    auto unix_lines = example;
    std::erase(unix_lines, '\r');
    const std::vector<std::pair<std::string, std::string>> files = {
        {example, example},
        {one_temperature, example},
        {no_photolysis, example},
        {no_depth_mode, With(example, " 5                 <0 = ", " 0                 <0 = ")},
        {unix_lines, example}};
    for (const auto& [older, newer] : files) {
        Write_Whole(Installation() / "older.psm", older);
        fs::remove(Installation() / "newer.psm");
        In_Editor("older.psm", [](QWidget& scheme) { Save(scheme, "ComSave", "newer.psm"); });
        EXPECT_EQ(Read_Whole(Installation() / "newer.psm"), newer);
    }
    fs::remove(Installation() / "older.psm");
    fs::remove(Installation() / "newer.psm");
}

} // namespace orvel
