#include "ui/forms/printing.h"

#include "full_disk.h"
#include "temporary_directory.h"
#include "ui/forms/text_output.h"

#include <gtest/gtest.h>
#include <QPrinter>

namespace orvel {

TEST(Print_On, Tells_A_File_That_Cannot_Be_Begun_Or_Not_Be_Ended)
{
    const Temporary_Directory place;
    const auto print = [&](const char* name) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString((place / name).string()));
        return Print_On(printer, [](QPrinter& chosen) { Print_Text_On(chosen, "A line"); });
    };

    EXPECT_EQ(print("out.pdf"), std::nullopt);
    const auto unbegun = print("no/such/out.pdf");
    ASSERT_TRUE(unbegun);
    EXPECT_TRUE(unbegun->contains("no/such/out.pdf\" could not be written")) << unbegun->toStdString();
    const Full_Disk full(1000);
    EXPECT_TRUE(print("cut.pdf"));
}

} // namespace orvel
