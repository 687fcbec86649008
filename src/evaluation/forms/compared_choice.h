#pragma once

#include "evaluation/compared_assessment.h"

#include <QDialog>

class QLineEdit;
class QPushButton;

namespace orvel {

// Asks what an overview is to be compared with: earlier results from a list, or a path.
class Compared_Choice : public QDialog {
    Q_OBJECT

public:
    explicit Compared_Choice(const std::vector<Earlier_Results>& earlier, QWidget* parent = nullptr);

    std::filesystem::path Chosen() const;

private:
    void Lay_Out(const std::vector<Earlier_Results>& earlier);
    QWidget* Earlier_List(const std::vector<Earlier_Results>& earlier);

    QLineEdit* Other = nullptr;
    QPushButton* Do_Compare = nullptr;
};

} // namespace orvel
