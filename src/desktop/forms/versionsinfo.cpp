#include "desktop/forms/versionsinfo.h"

#include "core/version.h"
#include "desktop/forms/own_picture.h"
#include "desktop/release_notes.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/text_output.h"
#include "ui/forms/widgets.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace orvel {

Versionsinfo::Versionsinfo(QWidget* parent) : QDialog(parent)
{
    setObjectName("Versionsinfo");
    setWindowTitle("Release info");
    auto* picture = Named(new QLabel, "Image2");
    picture->setPixmap(Own_Picture("orvelsuite").pixmap(QSize(48, 48)));
    auto* name = Named(new QLabel("ORVEL"), "Label1");
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    name->setFont(large);
    auto* titles = new QVBoxLayout;
    titles->addWidget(name);
    titles->addWidget(Named(new QLabel("Pestcidie Leaching Model"), "Label2"));
    auto* head = new QHBoxLayout;
    head->addWidget(picture);
    head->addLayout(titles, 1);
    head->addWidget(Named(new QLabel(Shown(Program_Text)), "Versionsangabe"));

    auto* notes = Named(new QPlainTextEdit(Shown(Release_Notes())), "Text1");
    notes->setAccessibleName("Release notes");
    notes->setReadOnly(true);
    notes->setTabChangesFocus(true);
    notes->setMinimumSize(fontMetrics().averageCharWidth() * 90, fontMetrics().lineSpacing() * 14);

    auto* buttons = new QDialogButtonBox;
    auto* done = Named(buttons->addButton("&Done", QDialogButtonBox::AcceptRole), "Command1");
    connect(done, &QPushButton::clicked, this, &QDialog::accept);
    auto* all = new QVBoxLayout(this);
    all->addLayout(head);
    all->addWidget(notes, 1);
    all->addWidget(buttons);
    Use_Form_Keys(*this);
}

} // namespace orvel
