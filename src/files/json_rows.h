#pragma once

#include "core/json.h"

namespace orvel {

// As many elements as a count says, from `first` on; null for those before.
template <class Rows, class Body>
void Rows_In_Use(Json_Writer& out, std::string_view key, const Rows& rows, std::size_t first, double last, Body body)
{
    out.Key(key);
    out.Array([&] {
        for (std::size_t i = 0; i < rows.size() && static_cast<double>(i) <= last; ++i) {
            if (i < first)
                out.Null();
            else
                body(rows[i]);
        }
    });
}

} // namespace orvel
