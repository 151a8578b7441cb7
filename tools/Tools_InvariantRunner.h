// Runs checkFile for every file under every scheme in worker processes, so
// that neither a crash nor a hang of the engine stops the run: a worker that
// dies is counted as a crash of the file and scheme it was checking, one that
// takes longer than the time limit is killed and counted as a hang, and a new
// worker takes up the files behind it.
//
// Protocol between a worker (child) and the runner (parent), one line each:
//   B <file> <scheme>                          about to check
//   R <file> <scheme> <p><t><s><i><c> <detail> the verdict: parsed, tokens kept,
//                                               stable, identical, crashed (0/1);
//                                               the detail with "\" and newlines escaped
//   E                                          all files done
// Worker w of J checks files w, w+J, w+2J, ..., each under every scheme in order.
#ifndef TOOLS_INVARIANTRUNNER_H
#define TOOLS_INVARIANTRUNNER_H

#include "Tools_InvariantCheck.h"

#include <functional>
#include <string>
#include <vector>

namespace Tools {

struct RunPlan {
    std::vector<std::string> files;
    std::vector<SchemeUnderTest> schemes;
    Formatter format;
    int jobs = 1;
    double timeoutSeconds = 30;
};

// Called in the parent for every file and scheme, in no fixed order.
using VerdictSink = std::function<void(std::size_t file, std::size_t scheme, const Verdict& verdict)>;

// False and `error` when no worker could be started at all.
bool runPlan(const RunPlan& plan, const VerdictSink& sink, std::string& error);

} // namespace Tools

#endif
