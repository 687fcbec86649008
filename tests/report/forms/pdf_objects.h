#pragma once

#include <map>
#include <QByteArray>
#include <QRegularExpression>
#include <stdexcept>
#include <vector>

namespace orvel {

// An object of a PDF file as its cross-reference table finds it: what stands before a stream, and the stream.
struct Pdf_Object {
    QByteArray Text;    // the dictionary of a stream
    QByteArray Stream;  // as it is in the file
    QByteArray Decoded; // inflated
    bool Is_Stream = false;
    bool Is_Whole = false; // keywords stand on lines of their own, and the stream is as long as it says
};

// The file by its objects. Throws std::runtime_error for one whose cross-reference table leads nowhere.
class Pdf_Objects {
public:
    explicit Pdf_Objects(const QByteArray& pdf) : Pdf(pdf)
    {
        const auto begin = Number_Behind("startxref\n", Pdf.lastIndexOf("startxref\n"));
        const auto lines = Pdf.mid(begin, Pdf.lastIndexOf("trailer") - begin).split('\n');
        if (lines.value(0) != "xref")
            throw std::runtime_error("no cross-reference table");
        for (qsizetype i = 3; i < lines.size(); ++i) {
            if (lines[i].endsWith(" n "))
                Offsets[static_cast<int>(i) - 2] = lines[i].left(10).toLongLong();
        }
        for (const auto& [number, offset] : Offsets)
            All[number] = Object_At(number, offset);
        Trailer = Pdf.mid(Pdf.lastIndexOf("trailer"));
    }

    const Pdf_Object& At(int number) const { return All.at(number); }

    // The objects whose text holds a part.
    std::vector<const Pdf_Object*> With(const QByteArray& part) const
    {
        std::vector<const Pdf_Object*> found;
        for (const auto& [number, object] : All) {
            if (object.Text.contains(part))
                found.push_back(&object);
        }
        return found;
    }

    // The object that an entry of a dictionary refers to: "/Contents 13 0 R".
    const Pdf_Object& Referred(const Pdf_Object& object, const QByteArray& key) const
    {
        const QRegularExpression reference(QString::fromLatin1(key + "\\s*\\[?\\s*(\\d+) 0 R"));
        const auto match = reference.match(QString::fromLatin1(object.Text));
        if (!match.hasMatch())
            throw std::runtime_error(("no reference " + key).toStdString());
        return All.at(match.captured(1).toInt());
    }

    std::map<int, Pdf_Object> All; // by number
    QByteArray Trailer;

private:
    qsizetype Number_Behind(const QByteArray& word, qsizetype at) const
    {
        return Pdf.mid(at + word.size(), 12).split('\n').value(0).trimmed().toLongLong();
    }

    Pdf_Object Object_At(int number, qsizetype offset) const
    {
        const QByteArray head = QByteArray::number(number) + " 0 obj\n";
        if (Pdf.mid(offset, head.size()) != head)
            throw std::runtime_error("no object at " + std::to_string(offset));
        const auto begin = offset + head.size();
        const auto stream = Pdf.indexOf("\nstream\n", begin), end = Pdf.indexOf("endobj", begin);
        Pdf_Object object;
        if (stream < 0 || stream > end) {
            object.Text = Pdf.mid(begin, end - begin);
            object.Is_Whole = object.Text.endsWith('\n');
            return object;
        }
        object.Is_Stream = true;
        object.Text = Pdf.mid(begin, stream - begin);
        const auto data = stream + 8;
        object.Stream = Pdf.mid(data, Length_Of(object.Text));
        object.Is_Whole = Pdf.mid(data + object.Stream.size()).startsWith("\nendstream\nendobj");
        object.Decoded = object.Text.contains("/FlateDecode")
                             ? qUncompress(QByteArray("\x00\x40\x00\x00", 4) + object.Stream)
                             : object.Stream;
        return object;
    }

    qsizetype Length_Of(const QByteArray& dictionary) const
    {
        const QRegularExpression length("/Length (\\d+)( 0 R)?");
        const auto match = length.match(QString::fromLatin1(dictionary));
        const int number = match.captured(1).toInt();
        if (match.captured(2).isEmpty())
            return number;
        const auto at = Offsets.find(number);
        return at == Offsets.end() ? 0 : Number_Behind("obj\n", Pdf.indexOf("obj\n", at->second));
    }

    QByteArray Pdf;
    std::map<int, qsizetype> Offsets;
};

} // namespace orvel
