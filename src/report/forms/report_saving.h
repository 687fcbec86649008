#pragma once

#include "core/session.h"
#include "report/summary_report.h"

#include <QString>
#include <vector>

class QWidget;

namespace orvel {

// Lets the user choose a file to save to; its format goes by the ending, which the chosen filter completes. Empty: the
// user has cancelled. The dialog has the name that is given.
QString Chosen_File(QWidget& parent, const QString& dialog_name, const QString& title, const QString& filters,
                    const QString& proposed);

// Lets the user choose file and format, and saves the report of the summaries' simulations. The user has been told of a
// failure.
void Save_Report_As(QWidget& parent, const Session& session, const std::vector<Summary_Request>& requests);

} // namespace orvel
