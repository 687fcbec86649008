#pragma once

#include "core/session.h"
#include "report/summary_report.h"
#include "tables/forms/building_form.h"

#include <functional>

class QPlainTextEdit;

namespace orvel {

class Chart_View;

// The summary of one pesticide and crop over all locations: as text, and as a bar diagram per substance.
class Zusammenfassung_orv : public Building_Form {
    Q_OBJECT

public:
    // Opens the dialog that archives the simulations of a report.
    using Archive_Opener = std::function<void(const Summary_Request& request, QWidget* parent)>;

    Zusammenfassung_orv(Session& session, Summary_Request request, Archive_Opener archive, QWidget* parent = nullptr);

protected:
    void Build(const Progress& progress) override;
    void Show_Built() override;

private:
    bool Shows_Diagram() const;
    void S_Diagramm_Click();
    void Next_Substance();
    void Draw();
    void Copy();
    void Print();
    void Speichern();
    void Check_Guidance_Rules();

    Session& The_Session;
    const Summary_Request Request;
    const Archive_Opener Open_Archive;
    Summary Built_Summary;
    std::size_t Substance = 0;
    QPlainTextEdit* Ergebnis = nullptr;
    Chart_View* Diagramm = nullptr;
    QPushButton* S_Diagramm = nullptr;
};

} // namespace orvel
