#pragma once

#include "ui/forms/form_keys.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"

#include <QDialogButtonBox>
#include <QPushButton>

namespace orvel {

// The button row of a detail form: Done, and Cancel, which leaves the document as it is. Enter presses neither, unless
// it has the focus.
template <class Form, class Accept>
QDialogButtonBox* Done_And_Cancel(Form& form, Accept accept, const QString& accept_name = "Command1",
                                  const QString& accept_text = "&Done", const QString& cancel_name = "Command2")
{
    auto* buttons = new QDialogButtonBox;
    auto* done = Named(buttons->addButton(accept_text, QDialogButtonBox::AcceptRole), accept_name);
    auto* cancel = Named(buttons->addButton("&Cancel", QDialogButtonBox::RejectRole), cancel_name);
    for (auto* button : {done, cancel})
        button->setAutoDefault(false);
    Use_Form_Keys(form);
    QObject::connect(done, &QPushButton::clicked, &form, accept);
    QObject::connect(cancel, &QPushButton::clicked, &form, &Form::reject);
    return buttons;
}

// The same for a form with numbers: one that is too large to be held keeps the form open.
template <class Form, class... Names>
QDialogButtonBox* Done_And_Cancel(Form& form, const Ask_Function& ask, void (Form::*accept)(), const Names&... names)
{
    const auto accept_numbers = [&form, &ask, accept] {
        if (Numbers_Are_Held(form, ask))
            (form.*accept)();
    };
    return Done_And_Cancel(form, accept_numbers, names...);
}

} // namespace orvel
