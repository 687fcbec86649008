#pragma once

#include "core/message.h"

#include <QString>

class QPlainTextEdit;
class QPrinter;
class QWidget;

namespace orvel {

// A read-only text view in a fixed-pitch font: long lines scroll instead of wrapping, and tab stops put the
// heads of the tables over their figures.
QPlainTextEdit* Fixed_Pitch_Text(const QString& name, const QString& purpose);

// Puts a text on the clipboard; tabs separate columns when pasted into a spreadsheet.
void Copy_Text(const QString& text);

// Prints a text in a fixed-pitch font, reduced if need be so that its longest line fits the page.
void Print_Text_On(QPrinter& printer, const QString& text);

// The same with a page of HTML, in landscape, reduced if need be so that it fits the paper's width.
void Print_Page(QWidget& parent, const Ask_Function& ask, const QString& title, const QString& html);
void Print_Page_On(QPrinter& printer, const QString& html);

// Lets the user choose a printer, or a PDF file, and prints; a failure is told.
void Print_Text(QWidget& parent, const Ask_Function& ask, const QString& title, const QString& text);

} // namespace orvel
