#pragma once

#include <filesystem>
#include <QLabel>

namespace orvel {

// A path on one line, however long: its middle gives way where there is no room, and the tool tip has it whole.
class Path_Label : public QLabel {
public:
    // `purpose` is what a screen reader says before the path.
    explicit Path_Label(QString purpose, QWidget* parent = nullptr);

    void Show(const std::filesystem::path& path);
    const QString& Path() const { return Whole; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Fit();

    QString Purpose, Whole;
};

} // namespace orvel
