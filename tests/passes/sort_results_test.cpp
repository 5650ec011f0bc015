#include "passes/sort_results.h"

#include "passes/results.h"
#include "tests/passes/passes_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class SortResultsTest : public PassesTest {
  protected:
    void add(const std::string& name, const std::string& date, const std::string& time) {
        form.LISTpasses.add(
            rowOfTexts({name, date, time, "000", "10 (AZ 000)", "00:05:00", "000", "Yes", "No "}));
    }
    std::string order() const {
        std::string names;
        for (const ResultRow& row : rows()) names += row.texts[0];
        return names;
    }
};

TEST_F(SortResultsTest, SortsByDateAndTimeOfOneYearAndKeepsTheOrderOfEquals) {
    add("a", "31 DEC", "23:00:00");
    add("b", "01 JAN", "00:10:00");
    add("c", "22 AUG", "10:00:00");
    add("d", "22 AUG", "09:59:59");
    add("e", "22 AUG", "10:00:00");
    add("f", "02 FEB", "00:00:00");
    add("g", "22 AUG", "00:00:00");
    const ResultRow last = rows()[0];
    BUTsortChron_Click(form, state, services);
    EXPECT_EQ(order(), "bfgdcea");
    EXPECT_EQ(rows().back(), last) << "a row moves with all its texts";
}

TEST_F(SortResultsTest, TheLastDayOfALeapFebruaryComesBeforeMarchInEveryYear) {
    add("b", "01 MAR", "00:10:00");
    add("a", "29 FEB", "23:51:00");
    fakes.clock.setUtc({2027, 3, 1, 12, 0, 0}, 0);
    BUTsortChron_Click(form, state, services);
    EXPECT_EQ(order(), "ab");
}

TEST_F(SortResultsTest, TheListIsHiddenAndTheBarMovesAtEveryStep) {
    for (const char* name : {"a", "b", "c"}) add(name, "01 MAY", "00:00:00");
    std::vector<std::size_t> values;
    fakes.events.onYield = [&] {
        EXPECT_FALSE(form.LISTpasses.isVisible);
        EXPECT_EQ(form.PROsorting.maximum, 3U);
        values.push_back(form.PROsorting.value);
    };
    BUTsortChron_Click(form, state, services);
    EXPECT_EQ(values, (std::vector<std::size_t>{0, 1, 1, 2, 2, 3, 3}));
    EXPECT_TRUE(form.LISTpasses.isVisible);
    form.LISTpasses.clear();
    fakes.events.yields = 0;
    fakes.events.onYield = {};
    BUTsortChron_Click(form, state, services);
    EXPECT_EQ(fakes.events.yields, 1) << "an empty list only flashes";
}

TEST_F(SortResultsTest, WhatTheUserDoesMeanwhileTakesEffect) {
    for (const char* name : {"d", "c", "b", "a"}) {
        add(name, std::string("0") + static_cast<char>(name[0] - 'a' + '1') + " MAY", "00:00:00");
    }
    fakes.events.onYield = [&] {
        if (fakes.events.yields == 5) add("z", "01 JAN", "00:00:00");
    };
    BUTsortChron_Click(form, state, services);
    EXPECT_EQ(order(), "abcdz") << "what comes in is behind the rows that are sorted";

    fakes.events.yields = 0;
    fakes.events.onYield = [&] {
        if (fakes.events.yields == 3) BUTclearResults_Click(form);
    };
    BUTsortChron_Click(form, state, services);
    EXPECT_TRUE(rows().empty());
    EXPECT_TRUE(form.LISTpasses.isVisible);
}

TEST_F(SortResultsTest, ASortInsideTheSortEndsInOrder) {
    for (const char* name : {"c", "b", "a"}) {
        add(name, std::string("0") + static_cast<char>(name[0] - 'a' + '1') + " MAY", "00:00:00");
    }
    bool isInside = false;
    fakes.events.onYield = [&] {
        if (isInside || fakes.events.yields != 3) return;
        isInside = true;
        BUTsortChron_Click(form, state, services);
        EXPECT_EQ(order(), "abc");
        EXPECT_TRUE(form.LISTpasses.isVisible) << "the inner one shows the list";
    };
    BUTsortChron_Click(form, state, services);
    EXPECT_TRUE(isInside);
    EXPECT_EQ(order(), "abc");
    EXPECT_TRUE(form.LISTpasses.isVisible);
}

TEST_F(SortResultsTest, LeavesWithTheViewAndShowsTheListAfterAFailure) {
    for (const char* name : {"b", "a"}) add(name, "01 MAY", "00:00:00");
    fakes.events.onYield = [&] { state.MainTag = "menu"; };
    BUTsortChron_Click(form, state, services);
    EXPECT_EQ(fakes.events.yields, 1);
    state.MainTag = "passprediction";
    fakes.events.onYield = {};

    add("c", "01 XYZ", "00:00:00");
    EXPECT_THROW(BUTsortChron_Click(form, state, services), std::invalid_argument);
    EXPECT_TRUE(form.LISTpasses.isVisible);
}

}  // namespace
}  // namespace vantrace
