#pragma once

#include "core/message.h"
#include "core/variant.h"
#include "ui/forms/byte_edit.h"

namespace orvel {

// A field of numbers. It shows its unit at its right end and, while its text is read as another number than it shows
// ("12 cm", "abc"), a warning icon before the unit and a sentence below the field with the number read. It accepts any
// text; a comma becomes a point.
class Number_Edit : public Byte_Edit {
    Q_OBJECT

public:
    explicit Number_Edit(QString unit = {}, QWidget* parent = nullptr);

    const QString& Unit() const { return The_Unit; }
    void Set_Unit(const QString& unit);

    // Shows a value of a document, without the blanks of a printed number.
    void Show_Value(const Variant& value);

    // What a document keeps of the text: see Typed_Number.
    Variant Value() const;

    QString Hint() const override;

    QSize minimumSizeHint() const override; // wide enough for a rate with its decimals

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void Adapt(QString& typed) const override;

private:
    void Show_Hint();
    void Make_Room();

    QString The_Unit;
};

// Whether all numbers shown in a window can be held; one that is too large is told and gets the focus.
bool Numbers_Are_Held(const QWidget& window, const Ask_Function& ask);

} // namespace orvel
