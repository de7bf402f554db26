// Scripts for the panel: parsing, which needs no panel.
#include "fuzz_frame.h"
#include "script.h"

namespace {

Reached runs("runs");
Reached parsed("parsed");
Reached refused("refused");

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    startFuzzing();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ++runs;
    Script script;
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const bool good = script.parse(QString::fromLatin1("script"), QString::fromUtf8(text));
    if (good != script.problems().isEmpty())
        report("a script is refused without a problem, or taken with one");
    for (const ScriptStep& step : script.steps()) {
        if (step.line < 1 || step.line > text.count('\n') + text.count('\r') + 1)
            report("a step of a line that is not there");
    }
    if (!good)
        ++refused;
    else if (!script.steps().isEmpty())
        ++parsed;
    return 0;
}
