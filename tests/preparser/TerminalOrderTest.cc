#include "TerminalNames.h"
#include "preparser/PreBisonParser.h"

namespace {

TEST(PreTerminalOrderTest, TerminalsAreNumberedInThePreParsersOrder) {
    ::test::expectTerminalNames<pre::PreBisonParser>(
        "{ } . ; special import identifier datastring integer component interface namespace");
}

} // namespace
