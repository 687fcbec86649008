#pragma once

#include "core/variant.h"
#include "ui/forms/byte_edit.h"

namespace orvel {

// A field of numbers. It shows its unit at its right end and, while a text stands in it that is read as something else
// than it looks ("1,5", "abc"), a sign before the unit and a sentence below the field that tells the number that is
// read. It never refuses a text.
class Number_Edit : public Byte_Edit {
    Q_OBJECT

public:
    explicit Number_Edit(QString unit = {}, QWidget* parent = nullptr);

    const QString& Unit() const { return The_Unit; }
    void Set_Unit(const QString& unit);

    // Shows a value of a document as a text, without the blanks of a printed number.
    void Show_Value(const Variant& value);

    // What a document keeps of the text: see Typed_Number.
    Variant Value() const;

    QString Hint() const override;

    QSize minimumSizeHint() const override; // a rate with its decimals stays readable

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Show_Hint();
    void Make_Room();

    QString The_Unit;
};

} // namespace orvel
