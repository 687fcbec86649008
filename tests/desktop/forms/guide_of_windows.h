#pragma once

#include <filesystem>
#include <map>
#include <QStringList>
#include <vector>

class QWidget;

namespace orvel {

// What a window shows and what the guide says of it.

// A control that can be used: its caption without key and colon, and its unit.
struct Captioned {
    QString Caption, Unit, Control;
};
std::vector<Captioned> Controls_Of(const QWidget& window);

// Pages of the guide: the rows of their tables by the captions that their first cells hold in backticks, and all text.
struct Guide_Text {
    std::multimap<QString, QString> Rows;
    QString Text;
};
Guide_Text Read_Guide(const std::filesystem::path& guide, const QStringList& pages);

// Whether a row has the control's caption and, where it has one, its unit.
bool Is_Described(const Captioned& control, const Guide_Text& guide);

// Whether the last cell of such a row, its default, has this number.
bool Is_Default(const Captioned& control, const QString& number, const Guide_Text& guide);

// The places of the windows by their object names, "page.md#heading" first.
std::map<QString, QStringList> Read_Places(const std::filesystem::path& file);

// A caption as it is compared: without the mark of its key, points and colon at its end, and blanks around it.
QString Plain_Caption(QString caption);

} // namespace orvel
