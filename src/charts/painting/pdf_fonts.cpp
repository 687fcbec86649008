#include "charts/painting/pdf_fonts.h"

#include <algorithm>
#include <map>
#include <QList>
#include <string_view>

namespace orvel {

namespace {

constexpr qsizetype Tag_Length = 7;     // "ABCDEF+"
constexpr qsizetype Offset_Digits = 10; // of a line of the cross-reference table
constexpr std::string_view Base_Font = "/BaseFont /", Font_Name = "/FontName /";

// Where the objects begin, by number.
struct Cross_References {
    qsizetype Table = 0; // where it begins
    std::map<int, qsizetype> Offsets;
    std::map<int, qsizetype> Lines; // where their offsets stand
};

Cross_References References_Of(const QByteArray& pdf)
{
    Cross_References found;
    const QByteArray head = "startxref\n";
    found.Table = pdf.mid(pdf.lastIndexOf(head) + head.size()).split('\n').value(0).trimmed().toLongLong();
    const auto end = pdf.lastIndexOf("trailer");
    int number = -2; // the table's name, its range, object 0
    for (auto line = found.Table; line >= 0 && line < end; line = pdf.indexOf('\n', line) + 1, ++number) {
        if (number < 1)
            continue;
        found.Offsets[number] = pdf.mid(line, Offset_Digits).toLongLong();
        found.Lines[number] = line;
    }
    return found;
}

QByteArray Object_At(const QByteArray& pdf, const Cross_References& references, int number)
{
    const auto offset = references.Offsets.find(number);
    if (offset == references.Offsets.end())
        return {};
    return pdf.mid(offset->second, pdf.indexOf("endobj", offset->second) - offset->second);
}

// The number of the object that an entry refers to; 0 without one.
int Reference_In(const QByteArray& object, const QByteArray& entry)
{
    const auto at = object.indexOf(entry);
    return at < 0 ? 0 : object.mid(at + entry.size(), 12).split(' ').value(0).toInt();
}

// The tag of a font's descriptor, which the font itself or the one that it is made of has; empty without one.
QByteArray Tag_Of(const QByteArray& pdf, const Cross_References& references, const QByteArray& font)
{
    const int made_of = Reference_In(font, "/DescendantFonts [");
    const QByteArray described = made_of > 0 ? Object_At(pdf, references, made_of) : font;
    const QByteArray descriptor = Object_At(pdf, references, Reference_In(described, "/FontDescriptor "));
    const auto name = descriptor.indexOf(Font_Name.data());
    const QByteArray tag = descriptor.mid(name + qsizetype(Font_Name.size()), Tag_Length);
    return name >= 0 && tag.endsWith('+') ? tag : QByteArray();
}

// A number in the place of one with as many digits.
void Replace_Offset(QByteArray& pdf, qsizetype at, qsizetype offset)
{
    pdf.replace(at, Offset_Digits, QByteArray::number(offset).rightJustified(Offset_Digits, '0'));
}

} // namespace

QByteArray With_Tagged_Fonts(const QByteArray& pdf)
{
    const Cross_References references = References_Of(pdf);
    std::map<qsizetype, QByteArray> tags; // by the place where they go
    for (const auto& [number, offset] : references.Offsets) {
        const QByteArray object = Object_At(pdf, references, number);
        const auto name = object.indexOf(Base_Font.data());
        if (object.contains("\n<< /Type /Font\n") && name >= 0)
            tags[offset + name + qsizetype(Base_Font.size())] = Tag_Of(pdf, references, object);
    }
    std::erase_if(tags, [](const auto& tag) { return tag.second.isEmpty(); });
    const auto moved = [&](qsizetype place) {
        return place + Tag_Length * std::distance(tags.begin(), tags.lower_bound(place));
    };
    QByteArray tagged = pdf;
    for (const auto& [number, line] : references.Lines)
        Replace_Offset(tagged, line, moved(references.Offsets.at(number)));
    const auto start = tagged.lastIndexOf("startxref\n") + 10;
    tagged.replace(start, tagged.indexOf('\n', start) - start, QByteArray::number(moved(references.Table)));
    for (auto tag = tags.rbegin(); tag != tags.rend(); ++tag)
        tagged.insert(tag->first, tag->second);
    return tagged;
}

} // namespace orvel
