#include "TerminalNames.h"
#include "parser/grammar/BisonParser.h"

namespace {

TEST(TerminalOrderTest, TerminalsAreNumberedInTheLanguagesOrder) {
    ::test::expectTerminalNames<language::BisonParser>(
        "{ } [ ] ( ; : .. . , <=> = * #imported #file #dir import identifier datastring integer "
        "behaviour blocking bool component enum extern external false if illegal in inevitable "
        "injected inout interface namespace on optional otherwise out provides reply requires "
        "return subint system true LEFTARROW <- OR || AND && ISEQUAL == ISNOTEQUAL != ISLESS < "
        "ISLESSEQUAL <= ISGREATER > ISGREATEREQUAL >= PLUS + MINUS - NOT ! PARENTHESISCLOSE ) ELSE "
        "else");
}

} // namespace
