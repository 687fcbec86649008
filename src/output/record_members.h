#pragma once

#include "core/error.h"
#include "core/json.h"
#include "core/json_reader.h"
#include "output/recorded_file.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Members of a record in JSON, read and written. Whatever is no such member throws File_Error with its name.

// Reads a member; an error names it.
template <class Read> auto Member(const Json_Value& object, std::string_view name, Read read)
try {
    return read(object.At(name));
} catch (const File_Error& error) {
    if (error.Reason.starts_with("The member"))
        throw File_Error(error.Reason); // the name tells more than the place in a file that no one writes by hand
    throw File_Error("The member \"" + std::string(name) + "\" cannot be used: " + error.Reason);
}

template <class Read> auto List_In(const Json_Value& object, std::string_view name, Read read)
{
    return Member(object, name, [&](const Json_Value& value) {
        std::vector<decltype(read(value))> list;
        std::ranges::transform(value.Elements(), std::back_inserter(list), read);
        return list;
    });
}

std::string Text_Of(const Json_Value& value); // bytes of Windows-1252
std::string Text_In(const Json_Value& object, std::string_view name);
int Small(const Json_Value& value); // at most a thousand million

Recorded_File File_Of(const Json_Value& value);
void Put_File(Json_Writer& json, const Recorded_File& file);

} // namespace orvel
