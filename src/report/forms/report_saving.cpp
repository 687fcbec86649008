#include "report/forms/report_saving.h"

#include "core/error.h"
#include "report/painting/report_files.h"
#include "report/report_formats.h"
#include "ui/forms/widgets.h"

#include <QFileDialog>

namespace orvel {

QString Chosen_File(QWidget& parent, const QString& dialog_name, const QString& title, const QString& filters,
                    const QString& proposed)
{
    QFileDialog dialog(&parent, title, {}, filters);
    dialog.setObjectName(dialog_name);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const auto complete = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(filter.section("*.", 1).chopped(1));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, complete);
    complete(dialog.selectedNameFilter());
    dialog.selectFile(proposed);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void Save_Report_As(QWidget& parent, const Session& session, const std::vector<Summary_Request>& requests)
try {
    const auto& first = requests.front();
    const QString name = Shown(first.Pesticide + (requests.size() == 1 ? " " + first.Crop : std::string()));
    const QString file = Chosen_File(parent, "Save_Report", "Save report", Shown(Report_Filters()), name);
    if (file.isEmpty())
        return;
    const Hourglass waiting;
    Save_Report(session, requests, file.toStdString());
} catch (const File_Error& error) {
    session.Ask({"Save report", Bytes_Of(QString::fromUtf8(error.what()))});
}

} // namespace orvel
