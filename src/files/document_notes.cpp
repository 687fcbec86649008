#include "files/document_notes.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/json.h"
#include "core/text.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Schema = "orvel-notes 1";
constexpr std::string_view Ending = ".notes.json";
constexpr std::size_t Largest_Notes = 4U << 20U;
constexpr std::string_view Schema_Key = "schema", Fields_Key = "fields", Answers_Key = "answers";

// The members in the order of the file.
template <class Record> struct Text_Member {
    std::string_view Key;
    std::string Record::*Text;
};
constexpr std::array<Text_Member<Field_Note>, 4> Note_Members = {{{"source", &Field_Note::Source},
                                                                  {"comment", &Field_Note::Comment},
                                                                  {"checked_by", &Field_Note::Checked_By},
                                                                  {"date", &Field_Note::Date}}};
constexpr std::array<Text_Member<Guidance_Answer>, 6> Answer_Members = {{{"rule", &Guidance_Answer::Rule},
                                                                         {"field", &Guidance_Answer::Field},
                                                                         {"value", &Guidance_Answer::Value},
                                                                         {"text", &Guidance_Answer::Text},
                                                                         {"by", &Guidance_Answer::By},
                                                                         {"date", &Guidance_Answer::Date}}};

std::string Bytes_In(const Json_Value& value)
{
    const auto bytes = From_Utf8(value.Text());
    if (!bytes)
        value.Refuse("The text holds a character that no document can hold.");
    return *bytes;
}

template <class Record, std::size_t n>
void Write_Members(Json_Writer& json, const Record& record, const std::array<Text_Member<Record>, n>& members)
{
    json.Object([&] {
        for (const auto& [key, text] : members) {
            if (!(record.*text).empty())
                json.Member(key, record.*text);
        }
        for (const auto& [key, value] : record.Others) {
            json.Utf8_Key(key);
            value.Write(json);
        }
    });
}

template <class Record, std::size_t n>
Record Read_Members(const Json_Value& object, const std::array<Text_Member<Record>, n>& members)
{
    Record record;
    for (const auto& [key, value] : object.Members()) {
        const auto known = std::ranges::find(members, key, &Text_Member<Record>::Key);
        if (known == members.end())
            record.Others.emplace_back(key, value);
        else
            record.*known->Text = Bytes_In(value);
    }
    return record;
}

void Read_Fields(const Json_Value& fields, Document_Notes& notes)
{
    for (const auto& [name, value] : fields.Members()) {
        const auto field = From_Utf8(name);
        if (!field)
            value.Refuse("There is no field " + name + ".");
        notes.Fields.emplace_back(*field, Read_Members(value, Note_Members));
    }
}

void Read_Answers(const Json_Value& answers, Document_Notes& notes)
{
    for (const auto& value : answers.Elements()) {
        auto answer = Read_Members(value, Answer_Members);
        if (answer.Rule.empty() || answer.Field.empty() || answer.Text.empty())
            value.Refuse("An answer needs the members \"rule\", \"field\" and \"text\".");
        if (Answer_Of(notes, answer.Rule, answer.Field) != nullptr)
            value.Refuse("The rule " + To_Utf8(answer.Rule) + " is answered twice for " + To_Utf8(answer.Field) + ".");
        notes.Answers.push_back(std::move(answer));
    }
}

} // namespace

bool Field_Note::Is_Empty() const
{
    return Others.empty() && Says_The_Same({});
}

bool Field_Note::Says_The_Same(const Field_Note& other) const
{
    return std::ranges::all_of(Note_Members,
                               [&](const auto& member) { return this->*member.Text == other.*member.Text; });
}

const Field_Note* Note_Of(const Document_Notes& notes, std::string_view field)
{
    const auto found = std::ranges::find(notes.Fields, field, &std::pair<std::string, Field_Note>::first);
    return found == notes.Fields.end() ? nullptr : &found->second;
}

void Set_Note(Document_Notes& notes, std::string_view field, Field_Note note)
{
    const auto found = std::ranges::find(notes.Fields, field, &std::pair<std::string, Field_Note>::first);
    if (found == notes.Fields.end()) {
        if (!note.Is_Empty())
            notes.Fields.emplace_back(field, std::move(note));
    } else if (note.Is_Empty()) {
        notes.Fields.erase(found);
    } else {
        found->second = std::move(note);
    }
}

const Guidance_Answer* Answer_Of(const Document_Notes& notes, std::string_view rule, std::string_view field)
{
    const auto found = std::ranges::find_if(
        notes.Answers, [&](const Guidance_Answer& answer) { return answer.Rule == rule && answer.Field == field; });
    return found == notes.Answers.end() ? nullptr : &*found;
}

void Set_Answer(Document_Notes& notes, Guidance_Answer answer)
{
    std::erase_if(notes.Answers,
                  [&](const Guidance_Answer& old) { return old.Rule == answer.Rule && old.Field == answer.Field; });
    if (!answer.Text.empty())
        notes.Answers.push_back(std::move(answer));
}

Document_Notes With_Changes(Document_Notes others, const Document_Notes& before, const Document_Notes& after)
{
    for (const auto& [field, note] : after.Fields) {
        const auto* known = Note_Of(before, field);
        if (known == nullptr || !known->Says_The_Same(note))
            Set_Note(others, field, note);
    }
    for (const auto& [field, note] : before.Fields) {
        if (Note_Of(after, field) == nullptr)
            Set_Note(others, field, {});
    }
    const auto says = [](const Guidance_Answer& answer) {
        return std::tie(answer.Value, answer.Text, answer.By, answer.Date);
    };
    for (const auto& answer : after.Answers) {
        const auto* known = Answer_Of(before, answer.Rule, answer.Field);
        if (known == nullptr || says(*known) != says(answer))
            Set_Answer(others, answer);
    }
    for (const auto& answer : before.Answers) {
        if (Answer_Of(after, answer.Rule, answer.Field) == nullptr)
            Set_Answer(others, {.Rule = answer.Rule, .Field = answer.Field});
    }
    return others;
}

std::vector<Difference> Differences(const Document_Notes& first, const Document_Notes& second)
{
    std::vector<Difference> differences;
    const auto add = [&](std::string name, const std::string& one, const std::string& other) {
        if (one != other)
            differences.push_back({std::move(name), one, other});
    };
    const auto add_field = [&](const std::string& field) {
        const Field_Note none;
        const auto *one = Note_Of(first, field), *other = Note_Of(second, field);
        for (const auto& [key, text] : Note_Members)
            add(field + ", " + Replace_All(std::string(key), "_", " "), (one == nullptr ? none : *one).*text,
                (other == nullptr ? none : *other).*text);
    };
    for (const auto& [field, note] : first.Fields)
        add_field(field);
    for (const auto& [field, note] : second.Fields) {
        if (Note_Of(first, field) == nullptr)
            add_field(field);
    }
    const auto text_in = [](const Document_Notes& notes, const Guidance_Answer& of) {
        const auto* answer = Answer_Of(notes, of.Rule, of.Field);
        return answer == nullptr ? std::string() : answer->Text;
    };
    const auto add_answer = [&](const Guidance_Answer& of) {
        add("answer to " + of.Rule + " for " + of.Field, text_in(first, of), text_in(second, of));
    };
    std::ranges::for_each(first.Answers, add_answer);
    for (const auto& answer : second.Answers) {
        if (Answer_Of(first, answer.Rule, answer.Field) == nullptr)
            add_answer(answer);
    }
    return differences;
}

std::string Format_Notes(const Document_Notes& notes)
{
    Json_Writer json;
    json.Object([&] {
        json.Member(Schema_Key, Schema);
        json.Key(Fields_Key);
        json.Object([&] {
            for (const auto& [field, note] : notes.Fields) {
                json.Key(field);
                Write_Members(json, note, Note_Members);
            }
        });
        json.Key(Answers_Key);
        json.Array([&] {
            for (const auto& answer : notes.Answers)
                Write_Members(json, answer, Answer_Members);
        });
        for (const auto& [key, value] : notes.Others) {
            json.Utf8_Key(key);
            value.Write(json);
        }
    });
    return json.Written();
}

Document_Notes Parse_Notes(std::string_view bytes)
{
    const Json_Value json = Parse_Json(bytes);
    if (const auto& schema = json.At(Schema_Key); schema.Text() != Schema)
        schema.Refuse("The notes are of another version: \"" + schema.Text() + "\", not \"" + std::string(Schema) +
                      "\".");
    Document_Notes notes;
    for (const auto& [key, value] : json.Members()) {
        if (key == Fields_Key)
            Read_Fields(value, notes);
        else if (key == Answers_Key)
            Read_Answers(value, notes);
        else if (key != Schema_Key)
            notes.Others.emplace_back(key, value);
    }
    return notes;
}

fs::path Notes_File(const fs::path& document)
{
    fs::path name = document.stem();
    name += Ending;
    return Found_Or_New(document.parent_path().empty() ? fs::path(".") : document.parent_path(), name);
}

Document_Notes Read_Notes(const fs::path& document)
{
    const fs::path file = Notes_File(document);
    std::error_code error;
    if (fs::symlink_status(file, error).type() == fs::file_type::not_found)
        return {};
    const std::string bytes = Read_Whole(file, Largest_Notes);
    try {
        return Parse_Notes(bytes);
    } catch (const File_Error& damage) {
        throw File_Error(Located(file.string(), damage));
    }
}

void Copy_Notes(const fs::path& from, const fs::path& to)
{
    if (Notes_File(from) != Notes_File(to))
        Write_Notes(to, Read_Notes(from));
}

void Write_Notes(const fs::path& document, const Document_Notes& notes)
{
    const fs::path file = Notes_File(document);
    if (!notes.Is_Empty())
        return Write_Whole(file, Format_Notes(notes));
    std::error_code error;
    if (fs::remove(file, error); error)
        throw File_Error("Cannot remove " + file.string() + ": " + error.message() + ".");
}

} // namespace orvel
