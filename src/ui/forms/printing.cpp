#include "ui/forms/printing.h"

#include "ui/forms/widgets.h"

#include <algorithm>
#include <QFile>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>

namespace orvel {

namespace {

constexpr qint64 Tail = 32; // bytes at the end of a PDF file that hold its end mark

// A full disk is told by nothing but the missing end of the file.
bool Is_Whole_Pdf(const QString& name)
{
    QFile file(name);
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    file.seek(std::max<qint64>(0, file.size() - Tail));
    return file.readAll().contains("%%EOF");
}

} // namespace

std::optional<QString> Print_On(QPrinter& printer, const std::function<void(QPrinter&)>& draw)
{
    draw(printer);
    const QString file = printer.outputFileName();
    const bool to_file = printer.outputFormat() == QPrinter::PdfFormat;
    if (to_file && !Is_Whole_Pdf(file))
        return "\"" + file + "\" could not be written. Nothing, or not all, has been printed.";
    if (printer.printerState() == QPrinter::Error || printer.printerState() == QPrinter::Aborted)
        return "The printer \"" + printer.printerName() + "\" did not take the pages.";
    return std::nullopt;
}

void Print_By_Dialog(QWidget& parent, const Ask_Function& ask, QPrinter& printer,
                     const std::function<void(QPrinter&)>& draw)
{
    if (QPrintDialog(&printer, &parent).exec() != QDialog::Accepted)
        return;
    if (const auto failure = Print_On(printer, draw))
        ask({"Print", Bytes_Of(*failure)});
}

} // namespace orvel
