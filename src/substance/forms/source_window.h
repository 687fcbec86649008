#pragma once

#include "files/document_notes.h"

#include <array>
#include <QDialog>

namespace orvel {

class Byte_Edit;

// Where the value of a field comes from: source, comment, who checked it and when.
class Source_Window : public QDialog {
    Q_OBJECT

public:
    // `value` is what the field holds, with its unit.
    Source_Window(const std::string& field, const std::string& value, Field_Note note, QWidget* parent = nullptr);

    const Field_Note& Note() const { return The_Note; } // as entered, once accepted

private:
    void Lay_Out(const QString& field, const QString& value);
    void Done();

    Field_Note The_Note;
    std::array<Byte_Edit*, 4> Boxes{};
};

} // namespace orvel
