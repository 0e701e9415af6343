#include "support/run_program.h"

#include "support/running_program.h"

namespace multirename {

ProgramResult run_program(const ProgramRun& run)
{
    RunningProgram program(run, Tracing::Off);
    return program.result();
}

} // namespace multirename
