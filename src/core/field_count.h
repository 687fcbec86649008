#pragma once

#include <cstddef>
#include <optional>

namespace orvel {

// Converts to a field of any type in a braced list.
struct Any_Field {
    template <class T> operator T() const;
};

template <class Record, class... Fields> constexpr std::size_t Count_Fields()
{
    if constexpr (requires { Record{Fields{}..., Any_Field{}}; })
        return Count_Fields<Record, Fields..., Any_Field>();
    else
        return sizeof...(Fields);
}

// The number of fields that an aggregate has.
template <class Record> constexpr std::size_t Field_Count = Count_Fields<Record>();

} // namespace orvel
