#pragma once

#include "ui/forms/widgets.h"

#include <QDialogButtonBox>
#include <QPushButton>

namespace orvel {

// The button row of a detail form: Done, which Enter presses too, and Cancel, which leaves the document as it is.
template <class Form>
QDialogButtonBox* Done_And_Cancel(Form& form, void (Form::*accept)(), const QString& accept_name = "Command1",
                                  const QString& accept_text = "&Done", const QString& cancel_name = "Command2")
{
    auto* buttons = new QDialogButtonBox;
    auto* done = Named(buttons->addButton(accept_text, QDialogButtonBox::AcceptRole), accept_name);
    auto* cancel = Named(buttons->addButton("&Cancel", QDialogButtonBox::RejectRole), cancel_name);
    done->setDefault(true);
    cancel->setAutoDefault(false);
    QObject::connect(done, &QPushButton::clicked, &form, accept);
    QObject::connect(cancel, &QPushButton::clicked, &form, &Form::reject);
    return buttons;
}

} // namespace orvel
