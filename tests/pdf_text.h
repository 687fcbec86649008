#pragma once

#include "ui/forms/text_output.h"

#include <filesystem>
#include <QPrinter>
#include <QProcess>
#include <QString>
#include <stdexcept>

namespace orvel {

// A text printed to a PDF file, as the user's printer gets it.
inline std::filesystem::path Printed(const std::filesystem::path& file, const QString& text)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(file.string()));
    Print_Text_On(printer, text);
    return file;
}

// What can be read on the pages of a PDF file; what lies beyond their edges is not.
inline QString Text_Of_Pdf(const std::filesystem::path& file)
{
    QProcess reader;
    reader.start("pdftotext", {"-layout", QString::fromStdString(file.string()), "-"});
    if (!reader.waitForFinished() || reader.exitCode() != 0)
        throw std::runtime_error("pdftotext cannot read " + file.string());
    return QString::fromUtf8(reader.readAllStandardOutput());
}

} // namespace orvel
