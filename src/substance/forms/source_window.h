#pragma once

#include "files/forms/notes_under_edit.h"

#include <array>
#include <QDialog>

namespace orvel {

class Byte_Edit;

// Where the value of a field comes from: source, comment, who checked it and when.
class Source_Window : public QDialog, public Notes_Under_Edit {
    Q_OBJECT

public:
    // `value` is what the field holds, with its unit.
    Source_Window(const std::string& field, const std::string& value, Field_Note note, QWidget* parent = nullptr);

    const Field_Note& Note() const { return The_Note; } // as entered, once accepted
    void Take_Over_Notes(Document_Notes& notes) const override;

private:
    void Lay_Out(const QString& field, const QString& value);
    Field_Note Typed() const;
    void Done();

    const std::string Field;
    Field_Note The_Note;
    std::array<Byte_Edit*, 4> Boxes{};
};

} // namespace orvel
