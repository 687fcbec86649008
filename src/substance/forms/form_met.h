#pragma once

#include "core/session.h"
#include "substance/substance_entry.h"
#include "ui/forms/entries_under_edit.h"

#include <memory>
#include <QDialog>

namespace orvel {

class Substance_Fields;

// The metabolite selected by Substance_Index: its name, sorption and plant uptake.
class Form_MET : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    explicit Form_MET(Session& session, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;
    void reject() override; // also discards what the forms opened from it stored

private:
    struct State {
        Substance_Entry Entry;
        Pesticide_Document Document;
        bool operator==(const State&) const = default;
    };
    State Present() const;
    void Show_State(const State& state);
    void Lay_Out();
    void Done();

    Session& The_Session;
    std::unique_ptr<const State> At_First;
    const int Substance;
    const std::unique_ptr<const Pesticide_Document> Before;
    const bool Changed_Before;
    Substance_Fields* Fields = nullptr;
};

} // namespace orvel
