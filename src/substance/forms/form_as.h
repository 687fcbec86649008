#pragma once

#include "substance/application_state.h"

#include <QDialog>

class QPushButton;

namespace orvel {

class Application_Box;
class Byte_Edit;
class Substance_Fields;
class Volatilisation_Box;

// The active substance: its properties, and its applications, which are stored as they are edited.
class Form_AS : public QDialog {
    Q_OBJECT

public:
    explicit Form_AS(Session& session, QWidget* parent = nullptr);

    void reject() override; // restores the document as it was when the form opened

private:
    void Lay_Out();
    void Done();
    void Refuse(const Refusal& refusal);
    void Show_Minor(bool visible);

    Session& The_Session;
    const Editor_Copy Before;
    Substance_Fields* Fields = nullptr;
    Volatilisation_Box* Volatility = nullptr;
    Application_Box* Applications = nullptr;
    Byte_Edit* Text_comment = nullptr;
    QPushButton* Command4 = nullptr;
    bool Minor_Shown = false;
};

} // namespace orvel
