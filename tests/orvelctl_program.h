#pragma once

#include <filesystem>
#include <QProcess>
#include <QString>
#include <string>

namespace orvel {

// Runs orvelctl to its end; returns its exit code. Arguments are words as in a shell, with quotes of either kind. What
// it prints goes to a file, if there is one.
inline int Orvelctl(const std::string& arguments, const std::filesystem::path& output = {})
{
    constexpr int A_Long_Time = 600'000; // milliseconds
    QProcess program;
    program.setStandardOutputFile(output.empty() ? QProcess::nullDevice() : QString::fromStdString(output.string()));
    program.setStandardErrorFile(QProcess::nullDevice());
    program.start(ORVELCTL, QProcess::splitCommand(QString::fromStdString(arguments).replace('\'', '"')));
    const bool ended = program.waitForFinished(A_Long_Time) && program.exitStatus() == QProcess::NormalExit;
    return ended ? program.exitCode() : -1;
}

} // namespace orvel
