#pragma once

#include "tables/balance_tables.h"
#include "tables/forms/table_form.h"

#include <filesystem>

namespace orvel {

// The balance tables of one run: for water and for each substance, by year. A button opens the tables by month if the
// run has monthly output.
class Mass_Balance : public Table_Form {
    Q_OBJECT

public:
    Mass_Balance(Session& session, const std::filesystem::path& run_directory, QWidget* parent = nullptr,
                 Balance_View view = Balance_View::Annual);
};

} // namespace orvel
