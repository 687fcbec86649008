#include "runs/forms/dialog.h"

#include "ui/forms/widgets.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace orvel {

Dialog::Dialog(QWidget* parent) : QDialog(parent)
{
    setObjectName("Dialog");
    setWindowTitle("Simulated years");
    auto* buttons = new QHBoxLayout;
    for (const int years : {26, 46, 66}) {
        auto* button = Named(new QPushButton(QString("&%1 years").arg(years)), QString("Years_%1").arg(years));
        connect(button, &QPushButton::clicked, this, [this, years] {
            Chosen = years;
            accept();
        });
        buttons->addWidget(button);
    }
    auto* question = new QLabel("The application pattern is irregular. How many years shall be simulated?");
    question->setWordWrap(true);
    auto* all = new QVBoxLayout(this);
    all->addWidget(question);
    all->addLayout(buttons);
}

} // namespace orvel
