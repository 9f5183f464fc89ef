// Time text without a window: the worked examples typed key by key (through
// a model of the field that applies each character as the time edit does)
// and pasted, on both clocks; properties of typed digits and separators, of
// the spin field's texts and steps.
#include "HyTimeText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

namespace {

// A character's plan carried out on a text whose caret is at its end; the
// regional format is "h:mm AM" or "H:mm". Answers false for a beep.
bool Key(std::string& text, HyTimeFields& f, const HyTimeRules& rules, char ch)
{
    const HyTimeCharPlan plan = hy::PlanTimeChar((unsigned char)ch, text, f, rules, "0123456789:");
    text = plan.selectAllFirst ? "" : text;
    text = plan.insert ? text + ch : text;
    const HyTimeRead read = plan.read ? hy::ReadTime(text, rules, f) : HyTimeRead{};
    text = read.change == HyTimeTextChange::Unchanged ? text : read.text;
    char shown[32];
    std::snprintf(shown, sizeof shown, rules.is24Hour ? "%d:%02d" : "%d:%02d %s",
                  rules.is24Hour ? f.hours : (f.hours + 11) % 12 + 1, f.minutes, f.hours < 12 ? "AM" : "PM");
    text = plan.format && f.hours <= 24 && f.minutes <= 60 ? shown : text;
    return !plan.beep;
}

// Clock, pmBefore, a time set first (as SetTime sets it, leaving the field
// invalid; -1: none), the keys, and the outcome typed, then the same keys
// pasted at once: text = hours:minutes, "!" for a beep, "?" while invalid (a
// sign or a letter pasted alone reads as 0).
struct Example { bool is24; int pmBefore, hours, minutes; const char *keys, *outcome; };

const Example kExamples[] = {
    { false, 0, -1, 0, "930", "9:30 = 9:30 / 93:0 = 23:55" },   // pasted: 93 hours, capped
    { false, 8, -1, 0, "13", "1:3 = 13:30 / 1:3 = 13:30" },
    { false, 8, -1, 0, "7", "7 = 19:0 / 7 = 19:0" },
    { false, 8, -1, 0, "8", "8 = 8:0 / 8 = 8:0" },
    { false, 8, -1, 0, "12", "12 = 12:0 / 12 = 12:0" },
    { false, 8, -1, 0, "12A", "12:00 AM = 0:0 / 1 = 13:0" },   // midnight; pasted, "A" cuts to a digit
    { false, 0, -1, 0, "75", "7:5 = 7:50 / 7:5 = 7:50" },
    { true, 0, -1, 0, "75", "7:5 = 7:50 / 7:5 = 7:50" },
    { true, 0, -1, 0, "13", "13 = 13:0 / 13 = 13:0" },
    { false, 0, 23, 50, "+", "11:55 PM = 23:55? / + = 0:0" },
    { false, 0, 0, 10, "-", "12:00 AM = 0:0? / - = 0:0" },
    { false, 0, -1, 0, "9:58", "9:58 = 10:0 / 9:58 = 10:0" },
    { false, 0, -1, 0, "9:57", "9:57 = 9:55 / 9:57 = 9:55" },
    { true, 0, 9, 0, "A", " = 9:0?! / A = 0:0" },
    { false, 0, -1, 0, "1234", "12:34 = 12:35 / 12:34 = 13:280" },   // pasted runs read literally
    { false, 0, -1, 0, ":", " = -1:0? /  = -1:0?" },   // the separator alone empties the field
    { false, 0, -1, 0, "None", " = -1:0? / None = -1:0?" },   // letters typed are dropped; pasted, a word stays
    { false, 0, -1, 0, "99999999999:99", "9:9999999999:99 = 10:40 / 99999999999:99 = 23:55" },
    { false, 0, -1, 0, "9 ", "9:15 AM = 9:15 / 9  = 9:0" },   // Space steps an incomplete entry
};

TEST(TimeText, WorkedExamplesTypedAndPasted)
{
    for (const Example& e : kExamples) {
        std::string outcome;
        for (bool pasted : { false, true }) {
            const HyTimeRules rules{ ":", "AM", "PM", e.is24, e.pmBefore };
            HyTimeFields f{ e.hours, e.minutes };
            std::string text = pasted ? e.keys : "";
            bool quiet = true;
            for (const char* k = e.keys; *k && !pasted; ++k)
                quiet = Key(text, f, rules, *k) && quiet;
            const HyTimeRead read = pasted ? hy::ReadTime(text, rules, f) : HyTimeRead{};
            text = read.change == HyTimeTextChange::Unchanged ? text : read.text;
            outcome += text + " = " + std::to_string(f.hours) + ":" + std::to_string(f.minutes) + (f.valid ? "" : "?") +
                       (quiet ? "" : "!") + (pasted ? "" : " / ");
        }
        EXPECT_EQ(outcome, e.outcome) << e.keys << (e.is24 ? " (24-hour)" : "");
    }
}

// Up to five digits typed key by key, with separators mixed in, on both
// clocks and every pmBefore: a valid result is a time of the day in steps of
// five minutes; plain digits always end valid.
TEST(TimeText, TypedDigitsAndSeparatorsEndAsATimeOfTheDay)
{
    std::mt19937 random(20261123);
    for (int round = 0; round < 40000; ++round) {
        const HyTimeRules rules{ ":", "AM", "PM", round % 4 < 2, (round / 4) % 14 };
        HyTimeFields f;
        std::string text, keys;
        for (int i = 0, n = 1 + (int)(random() % 5); i < n; ++i)
            keys += round % 2 && random() % 4 == 0 ? ':' : (char)('0' + random() % 10);
        for (char k : keys)
            Key(text, f, rules, k);
        ASSERT_TRUE(f.valid || round % 2) << keys;
        ASSERT_TRUE(!f.valid || (f.hours >= 0 && f.hours * 100 + f.minutes <= 2355 && f.minutes >= 0 && f.minutes <= 55 &&
                                 f.minutes % 5 == 0)) << keys << " -> " << f.hours << ":" << f.minutes;
    }
}

// Every text the spin field shows reads back to its time from clear marks;
// spin steps wrap at both ends of every range ("09:30 AM": p = 2).
TEST(TimeText, SpinTextsReadBackAndStepsWrap)
{
    for (bool is24 : { false, true })
        for (int minute = 0; minute < 24 * 60; minute += 5) {
            const int h = minute / 60, m = minute % 60;
            char text[16];
            std::snprintf(text, sizeof text, is24 ? "%02d:%02d" : "%02d:%02d %s", is24 ? h : (h + 11) % 12 + 1, m,
                          h < 12 ? "AM" : "PM");
            HyTimeFields f;
            ASSERT_EQ(hy::ReadTime(text, { ":", "AM", "PM", is24, 8 }, f).change, HyTimeTextChange::Unchanged);
            ASSERT_TRUE(f.valid && f.hours == h && f.minutes == m) << text;
        }
    // Selection start (hours 0, minutes 3, designator 6), clock, the
    // afternoon forced, the time, delta: the time after the step.
    const struct { int at; bool is24, pm; int hours, minutes, delta; const char* after; } steps[] = {
        { 0, true, false, 23, 0, -1, "0:0" },   { 0, true, false, 0, 0, 1, "23:0" },
        { 0, false, false, 11, 0, -1, "0:0" },  { 0, false, false, 0, 0, 1, "11:0" },
        { 0, false, true, 23, 0, -1, "12:0 PM" },  { 0, false, true, 12, 0, 1, "23:0 PM" },
        { 0, false, false, 15, 0, 1, "0:0" },   // 0..11 whatever the hours: 14 wraps to 0
        { 3, false, false, 9, 55, -1, "9:0" },  { 3, false, false, 9, 0, 1, "9:55" },   // no carry
        { 3, false, false, 9, 10, 0, "9:15" },  { 6, false, false, 9, 30, -1, "21:30 PM" },
    };
    for (const auto& s : steps) {
        HyTimeFields f{ s.hours, s.minutes, false, false, s.pm };
        const HySpinPart part = hy::SpinStep(f, s.is24, s.at, 2, s.delta);
        EXPECT_EQ(std::to_string(f.hours) + ":" + std::to_string(f.minutes) + (f.forcePM ? " PM" : ""), s.after) << s.at;
        EXPECT_EQ(part, hy::SpinPartAt(s.at, 2));
    }
}

}  // namespace
