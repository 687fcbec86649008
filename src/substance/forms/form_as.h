#pragma once

#include "substance/active_substance.h"
#include "substance/application_state.h"
#include "substance/forms/application_box.h"
#include "ui/forms/entries_under_edit.h"

#include <memory>
#include <QDialog>

class QPushButton;

namespace orvel {

class Byte_Edit;
class Substance_Fields;
class Volatilisation_Box;

// The active substance: its properties, and its applications, which are stored as they are edited.
class Form_AS : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    explicit Form_AS(Session& session, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;
    void reject() override; // restores the document as it was when the form opened

private:
    // Where the editor stands is no change, but an undo returns there.
    struct State {
        Pesticide_Document Document;
        Editor_State Editor;
        Active_Entry Entry;
        Application_Box::State Applications;
        bool operator==(const State& other) const
        {
            return Document == other.Document && Entry == other.Entry && Applications == other.Applications;
        }
    };
    State Present() const;
    void Show_State(const State& state);
    Active_Entry Entry(Substance_Entry substance) const;
    void Lay_Out();
    void Done();
    void Refuse(const Refusal& refusal);
    void Show_Minor(bool visible);

    Session& The_Session;
    std::unique_ptr<const State> At_First;
    const Editor_Copy Before;
    Substance_Fields* Fields = nullptr;
    Volatilisation_Box* Volatility = nullptr;
    Application_Box* Applications = nullptr;
    Byte_Edit* Text_comment = nullptr;
    QPushButton* Command4 = nullptr;
    bool Minor_Shown = false;
};

} // namespace orvel
