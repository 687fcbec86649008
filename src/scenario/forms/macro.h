#pragma once

#include "core/session.h"
#include "scenario/macropores.h"
#include "ui/forms/entries_under_edit.h"

#include <QDialog>

namespace orvel {

class Number_Edit;

// The parameters of macropore flow.
class Macro : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    explicit Macro(Session& session, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;

private:
    Macropore_Texts Texts() const;
    void Show_Texts(const Macropore_Texts& texts);
    void Done();

    Session& The_Session;
    const Macropore_Texts At_First;
    std::array<Number_Edit*, 3> Fields{}; // S_Ic, S_fmac, S_depma
};

} // namespace orvel
