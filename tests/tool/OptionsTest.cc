#include "tool/Options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using testing::ElementsAre;

// Parses a command line given without the program name.
struct Parsed {
    Options options;
    std::string log;
};

Parsed parse(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "kel-trace");
    std::vector<char*> argv;
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    std::ostringstream log;
    Options options = getOptions(static_cast<int>(argv.size()), argv.data(), listOptionTable(),
                                 valueOptionTable(), flagOptionTable(), defaultOptionLetter, log);
    return {options, log.str()};
}

TEST(GetOptionsTest, NoArgumentsGiveNoOptions) { EXPECT_TRUE(parse({}).options.empty()); }

TEST(GetOptionsTest, ReadsEveryKindOfOption) {
    Parsed parsed = parse({"-m", "M", "-I", "a", "-d", "-u", "-T", "p.x", "model.kel"});
    EXPECT_EQ(parsed.options, (Options{{"modelname", "M"},
                                       {"includepath", "a"},
                                       {"debug", "true"},
                                       {"unconstrained", "true"},
                                       {"trace", "p.x"},
                                       {"modelpath", "model.kel"}}));
    EXPECT_EQ(parsed.log, "");
}

struct ModelPathCase {
    std::vector<std::string> arguments;
    std::string modelPath;
};

void PrintTo(ModelPathCase const& testCase, std::ostream* out) {
    *out << testing::PrintToString(testCase.arguments);
}

class ModelPathTest : public testing::TestWithParam<ModelPathCase> {};

TEST_P(ModelPathTest, LastBareArgumentOrFWins) {
    EXPECT_EQ(parse(GetParam().arguments).options["modelpath"], GetParam().modelPath);
}

INSTANTIATE_TEST_SUITE_P(BareArguments, ModelPathTest,
                         testing::Values(ModelPathCase{{"-m", "M", "a.kel", "b.kel"}, "b.kel"},
                                         ModelPathCase{{"-f", "a.kel", "b.kel"}, "b.kel"},
                                         ModelPathCase{{"b.kel", "-f", "a.kel"}, "a.kel"},
                                         ModelPathCase{{"-"}, "-"},
                                         ModelPathCase{{"a.kel", ""}, ""},
                                         ModelPathCase{{"-fx", "a.kel"}, "a.kel"}));

TEST(GetOptionsTest, OnlyTheLetterBehindTheDashCounts) {
    Parsed parsed = parse({"-mFoo", "M", "--help"});
    EXPECT_EQ(parsed.options["modelname"], "M");
    EXPECT_EQ(parsed.log, "unknown option: '--help' ignored\n");
    EXPECT_FALSE(parsed.options.contains("help"));
}

TEST(GetOptionsTest, ReportsUnknownOptionsAndGoesOn) {
    Parsed parsed = parse({"-x", "-m", "M", "-q"});
    EXPECT_EQ(parsed.log, "unknown option: '-x' ignored\nunknown option: '-q' ignored\n");
    EXPECT_EQ(parsed.options, (Options{{"modelname", "M"}}));
}

TEST(GetOptionsTest, DropsAnOptionWithoutValue) {
    EXPECT_FALSE(parse({"-m"}).options.contains("modelname"));
    Parsed parsed = parse({"-t", "-m", "M"});
    EXPECT_EQ(parsed.options, (Options{{"modelname", "M"}}));
    EXPECT_EQ(parsed.log, "");
    EXPECT_FALSE(parse({"-I", "-d"}).options.contains("includepath"));
}

TEST(GetOptionsTest, LastValueWinsAndListsAccumulate) {
    Parsed parsed = parse({"-m", "A", "-m", "B", "-I", "a", "-I", "b"});
    EXPECT_EQ(parsed.options["modelname"], "B");
    EXPECT_EQ(parsed.options["includepath"], "a\nb");
    EXPECT_THAT(getOptionList(parsed.options, "includepath"), ElementsAre("a", "b"));
}

TEST(GetOptionsTest, TakesAnEmptyArgumentAsValue) {
    Parsed parsed = parse({"-t", "", "-m", "M"});
    EXPECT_TRUE(parsed.options.contains("tracefile"));
    EXPECT_EQ(parsed.options["tracefile"], "");
}

TEST(OptionLookupTest, EmptyValueCountsAsAbsent) {
    Options const options{{"modelname", ""}, {"trace", "p.x"}, {"unconstrained", ""}};
    EXPECT_FALSE(hasOption(options, "modelname"));
    EXPECT_FALSE(hasOption(options, "debug"));
    EXPECT_TRUE(hasOption(options, "trace"));
    EXPECT_EQ(getOption(options, "modelname"), "");
    EXPECT_EQ(getOption(options, "trace"), "p.x");
    EXPECT_TRUE(getOptionList(options, "modelname").empty());
    EXPECT_TRUE(getOptionList(options, "includepath").empty());
}

TEST(OptionLookupTest, ConstrainedUnlessUnconstrainedIsPresent) {
    EXPECT_TRUE(isComponentConstrainedByPorts({}));
    EXPECT_FALSE(isComponentConstrainedByPorts({{"unconstrained", ""}}));
    EXPECT_FALSE(isComponentConstrainedByPorts({{"unconstrained", "true"}}));
}

TEST(PrintManualTest, NamesTheProgramAsStarted) {
    std::ostringstream out;
    printManual("./bin/kt", out);
    EXPECT_EQ(out.str(),
              "Synopsis: ./bin/kt -m <modelname> [-u] [-f <modelpath>] [-s <spectracefile> | -S "
              "<spectrace>] [-t <tracefile> | -T <trace>] [-e <error>] KELFILE\n"
              "Read named event trace from <tracefile>, <trace> or STDIN and write\n"
              "first matching sequence diagram for <modelname> to STDOUT.\n");
}

} // namespace
