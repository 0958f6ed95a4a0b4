// Runs a practice on the headless machine, fires no round, and prints the log.
//   vorn-headless PROGRAM-DIRECTORY [visual|thermal]
#include <cstdio>
#include <cstring>

#include "flow/intro.h"
#include "gunnery/screen.h"
#include "platform/headless/headless_machine.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace {

void play(vorn::headless_machine& pc, vorn::trainer& t, bool thermal)
{
    vorn::gunnery_screen& s = thermal ? t.thermal : t.simulator;
    pc.watch(s.lblcrew);
    pc.event([&] { start_program(t); });
    pc.click(t.intro.lblstart);
    if (thermal) pc.click(t.startsim.Optmode2);
    pc.click(t.startsim.Optcon2);
    pc.confirm(t.startsim.Cmdstart);
    pc.click(s.Cmdstartsim);
    while (!pc.ended && s.simrunning) pc.advance(1);
}

}   // namespace

int main(int count, char** words)
{
    if (count < 2) {
        std::fprintf(stderr, "usage: vorn-headless PROGRAM-DIRECTORY [visual|thermal]\n");
        return 2;
    }
    vorn::headless_machine pc;
    pc.default_directory = words[1];
    vorn::trainer t(pc);
    play(pc, t, count > 2 && std::strcmp(words[2], "thermal") == 0);
    for (const vorn::logged& l : pc.log) {
        std::string text = l.text;
        for (char& c : text)
            if (c == '\n' || c == '\r') c = ' ';
        std::printf("%8.2f  %-8s %s\n", l.time, l.kind.c_str(), text.c_str());
    }
    return pc.ended ? 1 : 0;
}
