#include "ui/forms/byte_edit.h"

#include "core/code_page.h"
#include "ui/forms/widgets.h"

#include <QToolTip>
#include <QValidator>

namespace orvel {

// Accepts any text, dropping characters that the code page lacks.
class Byte_Edit::Code_Page_Validator : public QValidator {
public:
    explicit Code_Page_Validator(Byte_Edit& field) : QValidator(&field), Field(field) {}

    State validate(QString& input, int& cursor) const override
    {
        QString left_out;
        for (qsizetype i = 0; i < input.size();) {
            const qsizetype width = input[i].isHighSurrogate() && i + 1 < input.size() ? 2 : 1;
            if (From_Utf8(input.mid(i, width).toStdString())) {
                i += width;
                continue;
            }
            left_out += input.mid(i, width);
            input.remove(i, width);
            if (cursor > i)
                cursor -= static_cast<int>(width);
        }
        if (!left_out.isEmpty())
            Field.Leave_Out(left_out);
        input.replace(u'\n', u' ').replace(u'\r', u' '); // a field is one line, in its file too
        Field.Adapt(input);
        return Acceptable;
    }

private:
    Byte_Edit& Field;
};

Byte_Edit::Byte_Edit(QWidget* parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textEdited, this, [this] { Left_Out.clear(); });
    setValidator(new Code_Page_Validator(*this));
}

std::string Byte_Edit::Typed() const
{
    return Bytes_Of(text());
}

void Byte_Edit::Tell(const QString& sentence)
{
    setToolTip(sentence);
    setAccessibleDescription(sentence);
    if (sentence.isEmpty())
        QToolTip::hideText();
    else if (isVisible() && hasFocus())
        QToolTip::showText(mapToGlobal(rect().bottomLeft()), sentence, this);
}

// The field does not hold the new text yet, so the hint is shown from the event loop.
void Byte_Edit::Leave_Out(const QString& characters)
{
    const QString sentence = "The file cannot hold \"" + characters + "\": left out.";
    QMetaObject::invokeMethod(
        this,
        [this, sentence] {
            Left_Out = sentence;
            Tell(sentence);
        },
        Qt::QueuedConnection);
}

} // namespace orvel
