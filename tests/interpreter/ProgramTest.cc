#include "LoadedSource.h"

#include "ErrorText.h"
#include "interpreter/Program.h"

#include "metamodel/Behaviour.h"
#include "metamodel/Kel.h"

#include <gtest/gtest.h>

namespace interpreter::test {
namespace {

using ::test::errorOf;

LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface I { in void e(); behaviour { on e: {} } }
component C {
    provides I p;
    behaviour {
        bool b = false;
        bool f() { return true; }
        void g() { }
        on p.e(): {
            g();
            b = f();
            bool c = f();
            b = true;
        }
    }
}
component Bare { provides I p; }
)");
    return source;
}

kel::BehaviourStatement const& Top() { return Source().model("C").getBehaviour().getStatement(); }

kel::CompoundStatement const& Body() {
    auto const& on = *Top().asCompoundStatement()->getStatements()[0]->asOnEventStatement();
    return *on.getStatement().asCompoundStatement();
}

TEST(ProgramTest, AModelWithoutBehaviourHasNoProgram) {
    Program program(Source().model("Bare"));
    EXPECT_TRUE(program.IsCurrentScopeDepleted());
    EXPECT_EQ(program.TopStatement(), nullptr);
    EXPECT_EQ(program.PopNextStatement(), nullptr);
    EXPECT_EQ(program.GetScopeOwner(), nullptr);
    EXPECT_EQ(errorOf<std::runtime_error>([&] { program.PushStatement(Top()); }),
              "Cannot push statement when no program.");
    EXPECT_EQ(errorOf<std::runtime_error>([&] { program.CloseScope(); }), "Fout!");
}

TEST(ProgramTest, TheMainProgramStartsOverWhenItRunsDry) {
    Program program(Source().model("C"));
    EXPECT_EQ(program.TopStatement(), &Top());
    EXPECT_TRUE(program.CurrentScope()->IsMainProgram());
    EXPECT_TRUE(program.CurrentScope()->IsCompound());
    EXPECT_EQ(program.PopNextStatement(), &Top());
    EXPECT_TRUE(program.IsCurrentScopeDepleted());
    program.MainProgramReturn();
    EXPECT_FALSE(program.IsCurrentScopeDepleted());
    EXPECT_EQ(program.TopStatement(), &Top());
    // Never closed, also with statements left on it.
    EXPECT_EQ(errorOf<std::runtime_error>([&] { program.CloseScope(); }), "Main program scope should not be closed.");
}

TEST(ProgramTest, ScopesKnowTheirKindByTheirOwner) {
    auto const& statements = Body().getStatements();
    Program program(Source().model("C"));
    program.OpenScope(Body());
    EXPECT_TRUE(program.CurrentScope()->IsCompound());
    EXPECT_FALSE(program.CurrentScope()->IsMainProgram());
    EXPECT_FALSE(program.CurrentScope()->IsFunction());
    // A call as a statement, as an assigned value and as an initial value.
    for (std::size_t i = 0; i < 3; ++i) {
        program.OpenScope(*statements[i]);
        EXPECT_TRUE(program.CurrentScope()->IsFunction()) << i;
        EXPECT_FALSE(program.CurrentScope()->IsCompound()) << i;
        program.CloseScope();
    }
    program.OpenScope(*statements[3]);
    EXPECT_FALSE(program.CurrentScope()->IsFunction());
    program.CloseScope();
    program.CloseScope();
    EXPECT_EQ(program.GetScopeOwner(), &Top());
}

} // namespace
} // namespace interpreter::test
