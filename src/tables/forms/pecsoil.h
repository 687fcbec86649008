#pragma once

#include "tables/forms/table_form.h"

#include <filesystem>

namespace orvel {

// The actual and time-weighted average concentrations in the top layers of the soil; `depth` is their number, 1 or
// more.
class PECsoil : public Table_Form {
    Q_OBJECT

public:
    PECsoil(Session& session, const std::filesystem::path& run_directory, int depth, QWidget* parent = nullptr);
};

} // namespace orvel
