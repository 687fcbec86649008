#pragma once

#include "tables/forms/table_form.h"

#include <filesystem>

namespace orvel {

// The leachate tables of one run: the year table and the period table.
class Jahr_ORV : public Table_Form {
    Q_OBJECT

public:
    Jahr_ORV(Session& session, const std::filesystem::path& run_directory, QWidget* parent = nullptr);
};

} // namespace orvel
