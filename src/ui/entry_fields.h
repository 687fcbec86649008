#pragma once

#include "core/session.h"
#include "ui/number_field.h"

#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace orvel {

// A text box of a form, stated once: its control, its caption, the member of the form's entry that holds its text, and
// the field of the document behind it. A field with one value per substance is taken at the index of the form's
// substance.
template <class Entry, class Document> struct Entry_Field {
    using Place = std::variant<Variant Document::*, double Document::*, Per_Substance<Variant> Document::*,
                               Per_Substance<double> Document::*>;

    std::string_view Control, Caption; // UTF-8
    std::string Entry::*Text;
    Place Where;
    std::string_view Unit{};
    std::string_view Label{}; // control name of the caption, if it has one
};

// Calls `use` with the value in a document that a row stands for.
template <class Row, class Document, class Use>
void Use_Field(const Row& row, Document& document, std::size_t substance, Use use)
{
    std::visit(
        [&](auto place) {
            auto& value = document.*place;
            if constexpr (requires { value[substance]; })
                use(value[substance]);
            else
                use(value);
        },
        row.Where);
}

// The texts that the boxes show for a document.
template <class Entry, class Document> void Load_Fields(std::span<const Entry_Field<Entry, Document>> rows,
                                                        const Document& document, std::size_t substance, Entry& entry)
{
    for (const auto& row : rows) {
        Use_Field(row, document, substance, [&](const auto& value) {
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, double>)
                entry.*row.Text = General_Text(value);
            else
                entry.*row.Text = value.Text();
        });
    }
}

// Stores what was typed: a field that may hold text or number keeps the text, a number takes its value.
template <class Entry, class Document> void Store_Fields(std::span<const Entry_Field<Entry, Document>> rows,
                                                         const Entry& entry, std::size_t substance, Document& document)
{
    for (const auto& row : rows) {
        Use_Field(row, document, substance, [&](auto& value) {
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, double>)
                value = Val(entry.*row.Text);
            else
                value = Typed_Number(entry.*row.Text);
        });
    }
}

} // namespace orvel
