// The search tells the installed observer how it goes, a batch of states at
// a time, and an observer that throws cuts the search short.
#include "LoadedSource.h"

#include "interpreter/MatchingStates.h"
#include "interpreter/SearchObserver.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace interpreter::test {
namespace {

// Three ways to send every `o`: 3^k states have consumed k events.
LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface Fork {
    out void o();
    behaviour { on optional: o; on optional: o; on optional: o; }
}
)");
    return source;
}

std::vector<std::string> const eightEvents(8, "o");

struct Report {
    std::size_t states;
    std::size_t consumed;
    std::size_t traceLength;
};

class Recorder : public SearchObserver {
public:
    void Explored(std::size_t states, std::size_t consumed, std::size_t traceLength) override {
        reports.push_back({states, consumed, traceLength});
    }
    std::vector<Report> reports;
};

TEST(SearchObserverTest, HearsEveryStateInBatchesWhileInstalled) {
    Recorder recorder;
    {
        ObservedSearches const observed(recorder);
        MatchingStates(Source().run("Fork"), eightEvents);
    }
    MatchingStates(Source().run("Fork"), eightEvents);
    // The first state, then 3 + 9 + ... + 3^8 copies: (3^9 - 1) / 2.
    ASSERT_EQ(recorder.reports.size(), 3u);
    EXPECT_EQ(recorder.reports[0].states, SearchTally::batch);
    EXPECT_EQ(recorder.reports[1].states, SearchTally::batch);
    EXPECT_EQ(recorder.reports[2].states, 9841 - 2 * SearchTally::batch);
    EXPECT_EQ(recorder.reports[2].consumed, 8u);
    EXPECT_EQ(recorder.reports[2].traceLength, 8u);
}

struct Stop {};

class Stopper : public SearchObserver {
public:
    void Explored(std::size_t, std::size_t, std::size_t) override { throw Stop{}; }
};

TEST(SearchObserverTest, AnObserverThatThrowsEndsTheSearch) {
    Stopper stopper;
    {
        ObservedSearches const observed(stopper);
        EXPECT_THROW(MatchingStates(Source().run("Fork"), eightEvents), Stop);
    }
    EXPECT_EQ(MatchingStates(Source().run("Fork"), eightEvents).size(), 6561u);
}

} // namespace
} // namespace interpreter::test
