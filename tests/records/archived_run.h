#pragma once

#include "core/files.h"
#include "jobs/job.h"
#include "records/archive.h"
#include "runs/job_file.h"
#include "runs/run_fixture.h"
#include "runs/start_up.h"

namespace orvel {

// An installation with two runs of "gr\xFCn test", which an engine has completed.
class Archived_Run_Test : public Run_Test {
protected:
    Archived_Run_Test()
    {
        Good_Engine(2);
        Put(Home / "focus" / "c_apples.sze", "DEM 7 Demonstration\r\n");
        std::string job;
        for (const std::string location : {"Hamburg_-_(H).run", "Porto_-_(O).run"}) {
            const auto run = Pesticide_Place() / "Maize.run" / location;
            std::filesystem::create_directories(run);
            Copy_Whole(Home / "orvel401.exe", run / "orvel401.exe");
            Put(run / "orvel.inp", "002 01 01 31 12\r\n..\\..\\..\\H_maize.sze\r\np.psm\r\n..\\..\\..\\H_01.cli\r\n"
                                   "..\\..\\..\\H_01.cli\r\n00000001 00.\r\n");
            Put(run / "p.psm", "an input\r\n");
            job += Format_Job_Run("gr\xFCn_-_test.run\\Maize.run\\" + location, "orvel401.exe", job.empty());
        }
        for (const auto* input : {"H_maize.sze", "H_01.cli"})
            Put(Home / "focus" / input, "another input\r\n");
        Put(Home / "focus" / "orveljob.bat", Format_Job(job));
        Run_Job(Home / "focus", {.Jobs = 1});
        Find_Engine(The_Session.Program);
    }

    std::filesystem::path Pesticide_Place() { return Home / "focus" / Path_Of("gr\xFCn_-_test.run"); }
    std::filesystem::path Hamburg() { return Pesticide_Place() / "Maize.run" / "Hamburg_-_(H).run"; }

    Archived_Assessment Archive(const std::filesystem::path& to, std::string_view crop = "")
    {
        return Make_Archive(The_Session, Focus(), "gr\xFCn test", crop, to);
    }

    template <class Work> static std::string Told(Work work)
    {
        try {
            work();
            return {};
        } catch (const File_Error& error) {
            return error.what();
        }
    }
};

} // namespace orvel
