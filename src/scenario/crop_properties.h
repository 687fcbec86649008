#pragma once

#include "core/session.h"
#include "scenario/crop_data.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

struct Rotation_Work;

// The properties of the crops of a rotation: the working table of the crop form, applied on confirmation.
struct Edited_Crop {
    std::string Name;     // the entry in List_crop
    std::size_t Crop = 0; // 0-based index in the database
    Crop_Row Properties;
    bool operator==(const Edited_Crop&) const = default;
};
struct Crop_Editor {
    std::vector<Edited_Crop> Crops;
    bool Tillage_Modified = false;
    bool operator==(const Crop_Editor&) const = default;
};

constexpr std::array<std::string_view, 3> Conditions_After_Harvest = {"Fallow", "Cropping",
                                                                      "Residues"}; // the list of Combo1

// Loads each crop of the rotation once, in the order of its rows.
Crop_Editor Edit_Crops(const Rotation_Work& work);

// "Default Values": resets all properties except the tillage flag.
void Reset_Crop(Edited_Crop& edited, const Rotation_Work& work);

// The text boxes of the form by control name.
std::vector<std::string_view> Crop_Boxes();
std::string Crop_Text(const Crop_Row& crop, std::string_view control);
void Set_Crop_Text(Crop_Row& crop, std::string_view control, std::string_view text);

// A warning about the value in a box; the value is kept.
std::optional<Refusal> Check_Crop_Text(std::string_view control, std::string_view text);

// User clicks: the list index of the condition, or the index of the option (1 "Yes"). Setting the same tillage flag
// again still counts as modified.
void Choose_Condition(Crop_Row& crop, int item);
void Choose_Irrigated(Crop_Row& crop, int option);
void Choose_Perennial(Crop_Row& crop, int option);
void Choose_Tillage(Crop_Editor& editor, std::size_t crop, int option);

// The rotation with the properties as they are so far, but its tillage flags as they were: only the user's consent to
// what a changed one removes makes it count.
Rotation_Work With_Properties(Rotation_Work work, const Crop_Editor& editor);

// Confirmation. A modified tillage flag invalidates the rotation, whose dates depend on it: the user is asked. False:
// nothing is stored, and the form stays open.
bool Confirm_Crops(const Session& session, const Crop_Editor& editor, Rotation_Work& work);

} // namespace orvel
