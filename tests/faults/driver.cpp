// What the desktop program does with files and has no command for: saves a document, archives a single run, deletes a
// simulation. Prints every message on standard error; the exit code is 0 if all was done.
//   faults_driver save FILE TO | archive DIRECTORY | delete INSTALLATION
#include "core/code_page.h"
#include "core/error.h"
#include "documents/documents.h"
#include "files/document_kind.h"
#include "jobs/simulations.h"
#include "jobs/single_run_archive.h"

#include <iostream>
#include <memory>

namespace orvel {

namespace {

Button Agree(const Message& message)
{
    const bool asks = message.Buttons.size() > 1;
    if (!asks)
        std::cerr << To_Utf8(message.Title) << ": " << To_Utf8(message.Text) << '\n';
    return asks ? message.Buttons.front() : message.Default;
}

bool Delete(const Session& session)
{
    const auto& mode = Mode_Of(Mode_Kind::Focus);
    const auto list = Simulation_List(Mode_Directory(session.Program, mode));
    return Delete_Simulations(session.Program, session.Ask, mode, list) == static_cast<int>(list.size());
}

bool Do(Session& session, const std::string& what, const std::filesystem::path& first, const std::string& second)
{
    if (what == "save")
        return Open_Document(session, first) && Save_Document(session, second);
    if (what == "archive")
        return Archive_Run(session.Ask, first, "Run_1");
    session.Program.App_Path = first;
    return Delete(session);
}

} // namespace

} // namespace orvel

int main(int argc, char** argv)
try {
    if (argc < 3)
        return 2;
    const auto session = std::make_unique<orvel::Session>();
    session->Ask = orvel::Agree;
    return orvel::Do(*session, argv[1], argv[2], argc > 3 ? argv[3] : "") ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
