#include "charts/forms/picture_actions.h"

#include "core/error.h"
#include "ui/forms/printing.h"
#include "ui/forms/widgets.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QPrinter>

namespace orvel {

void Copy_Picture(const Picture& picture)
{
    QApplication::clipboard()->setImage(Picture_Image(picture));
}

void Print_Picture(QWidget& parent, const Ask_Function& ask, const Picture& picture)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(Shown(picture.Title));
    Print_By_Dialog(parent, ask, printer, [&](QPrinter& chosen) {
        QPainter painter;
        if (!painter.begin(&chosen))
            return;
        const QRect page = chosen.pageLayout().paintRectPixels(chosen.resolution());
        picture.Paint(painter, page.translated(-page.topLeft()));
    });
}

void Save_Picture_As(QWidget& parent, const Ask_Function& ask, const Picture& picture, const QString& title,
                     const QString& name)
try {
    QFileDialog dialog(&parent, title, {}, "Pictures (*.png *.svg *.pdf)");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("png");
    dialog.selectFile(name);
    if (dialog.exec() == QDialog::Accepted)
        Save_Picture(picture, dialog.selectedFiles().constFirst().toStdString());
} catch (const File_Error& error) {
    ask({Bytes_Of(title), Bytes_Of(QString::fromUtf8(error.what()))});
}

} // namespace orvel
