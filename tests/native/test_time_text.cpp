// Time text without a window: every worked example typed key by key and
// pasted on both clocks, through a model of the field that applies each
// character as the time edit does; properties of typed digits and
// separators, of the spin field's texts and of its steps; the number
// field's minimum.
#include "HyTimeText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace {

// The time edit's character handling over a text whose caret is at its end;
// the regional format is "h:mm AM" or "H:mm".
struct Field
{
    HyTimeRules rules;
    HyTimeFields f;
    std::string text;
    int beeps = 0;

    void Format()
    {
        char shown[32];
        const int h = f.hours % 12 == 0 ? 12 : f.hours % 12;
        if (rules.is24Hour)
            std::snprintf(shown, sizeof shown, "%d:%02d", f.hours, f.minutes);
        else
            std::snprintf(shown, sizeof shown, "%d:%02d %s", h, f.minutes, f.hours < 12 ? "AM" : "PM");
        if (f.hours <= 24 && f.minutes <= 60)
            text = shown;
    }
    void Read()
    {
        const HyTimeRead read = hy::ReadTime(text, rules, f);
        if (read.change != HyTimeTextChange::Unchanged)
            text = read.text;
    }
    void Key(char ch)
    {
        const HyTimeKey kind = hy::ClassifyTimeChar((unsigned char)ch, f, "0123456789" + rules.separator);
        switch (kind) {
        case HyTimeKey::StepUp:
        case HyTimeKey::StepDown:
            hy::StepQuarter(f, kind == HyTimeKey::StepUp) ? Format() : (void)++beeps;
            break;
        case HyTimeKey::ForceAM:
        case HyTimeKey::ForcePM:
            if (rules.is24Hour || f.hours == -1)
                return (void)++beeps;
            f.forceAM = (ch | 0x20) == 'a';
            f.forcePM = !f.forceAM;
            Read();
            Format();
            break;
        case HyTimeKey::General:
            f.valid = ch == '\b' ? false : f.valid;
            if (hy::TimeBeforeInsert(text, f))
                text.clear();
            ch == '\b' ? (text.empty() ? void() : text.pop_back()) : (text += ch, Read());
            break;
        case HyTimeKey::Drop:
            break;
        }
    }
    std::string Outcome() const
    {
        return text + " = " + std::to_string(f.hours) + ":" + std::to_string(f.minutes) + (f.valid ? "" : " invalid") +
               (beeps ? " beep" : "");
    }
};

// Clock, pmBefore, a starting time (-1: none; set as SetTime sets it, which
// leaves the field invalid), the keys, and the outcome: text = hours:minutes.
// "|" before the keys pastes them at once instead.
struct Example { bool is24; int pmBefore, hours, minutes; const char *keys, *outcome; };

const Example kExamples[] = {
    { false, 0, -1, 0, "93", "9:3 = 9:30" },   // two digits above 12 split
    { false, 0, -1, 0, "930", "9:30 = 9:30" },
    { false, 0, -1, 0, "|930", "93:0 = 23:55" },   // pasted: 93 hours, capped
    { false, 8, -1, 0, "13", "1:3 = 13:30" },
    { false, 8, -1, 0, "7", "7 = 19:0" },
    { false, 8, -1, 0, "8", "8 = 8:0" },
    { false, 8, -1, 0, "12", "12 = 12:0" },
    { false, 8, -1, 0, "12A", "12:00 AM = 0:0" },   // midnight
    { false, 0, -1, 0, "75", "7:5 = 7:50" },
    { true, 0, -1, 0, "75", "7:5 = 7:50" },
    { true, 0, -1, 0, "13", "13 = 13:0" },
    { false, 0, 23, 50, "+", "11:55 PM = 23:55 invalid" },
    { false, 0, 0, 10, "-", "12:00 AM = 0:0 invalid" },
    { false, 0, -1, 0, "9:58", "9:58 = 10:0" },
    { false, 0, -1, 0, "9:57", "9:57 = 9:55" },
    { true, 0, 9, 0, "A", " = 9:0 invalid beep" },   // A on a 24-hour clock only beeps
    { false, 0, -1, 0, "123", "12:3 = 12:30" },
    { false, 0, -1, 0, "|1234", "12:34 = 13:280" },   // pasted runs read literally
    { false, 8, -1, 0, "7p", "7:00 PM = 19:0" },
    { false, 0, -1, 0, ":", " = -1:0 invalid" },   // the separator alone empties the field
    { false, 0, -1, 0, "|None", "None = -1:0 invalid" },   // a word stays
    { false, 0, -1, 0, "|99999999999:99", "99999999999:99 = 23:55" },
    { false, 0, -1, 0, "9 ", "9:15 AM = 9:15" },   // Space in an incomplete entry steps
    { false, 0, -1, 0, "9:3 ", "9:3  = 9:5" },   // and is typed into a complete one
    { false, 0, 0, 0, "-", " = 0:0 invalid beep" },
    { false, 0, -1, 0, "+", " = -1:0 invalid beep" },
};

TEST(TimeText, WorkedExamplesTypedAndPasted)
{
    for (const Example& e : kExamples) {
        Field field{ { ":", "AM", "PM", e.is24, e.pmBefore }, {} };
        field.f.hours = e.hours;
        field.f.minutes = e.minutes;
        if (e.keys[0] == '|') {
            field.text = e.keys + 1;
            field.Read();
        } else {
            for (const char* k = e.keys; *k; ++k)
                field.Key(*k);
        }
        EXPECT_EQ(field.Outcome(), e.outcome) << e.keys << (e.is24 ? " (24-hour)" : "");
    }
}

// Up to five digits typed key by key, with separators mixed in, on both
// clocks and every pmBefore: a valid result is a time of the day in steps of
// five minutes; plain digits always end valid.
TEST(TimeText, TypedDigitsAndSeparatorsEndAsATimeOfTheDay)
{
    std::mt19937 random(20261123);
    for (int round = 0; round < 40000; ++round) {
        const bool separators = round % 2 == 1;
        Field field{ { ":", "AM", "PM", round % 4 < 2, (round / 4) % 14 }, {} };
        const int length = 1 + (int)(random() % 5);
        std::string keys;
        for (int i = 0; i < length; ++i)
            keys += separators && random() % 4 == 0 ? ':' : (char)('0' + random() % 10);
        for (char k : keys)
            field.Key(k);
        if (!separators)
            ASSERT_TRUE(field.f.valid) << keys;
        if (field.f.valid)
            ASSERT_TRUE(field.f.hours >= 0 && field.f.hours * 100 + field.f.minutes <= 2355 && field.f.minutes >= 0 &&
                        field.f.minutes <= 55 && field.f.minutes % 5 == 0)
                << keys << " -> " << field.Outcome();
    }
}

// Every text the spin field shows, on both clocks, reads back to its time
// from clear marks.
TEST(TimeText, SpinTextsReadBackToThemselves)
{
    for (bool is24 : { false, true })
        for (int minute = 0; minute < 24 * 60; minute += 5) {
            const int h = minute / 60, m = minute % 60;
            char text[16];
            if (is24)
                std::snprintf(text, sizeof text, "%02d:%02d", h, m);
            else
                std::snprintf(text, sizeof text, "%02d:%02d %s", h % 12 == 0 ? 12 : h % 12, m, h < 12 ? "AM" : "PM");
            HyTimeFields f;
            const HyTimeRead read = hy::ReadTime(text, { ":", "AM", "PM", is24, 8 }, f);
            ASSERT_TRUE(read.change == HyTimeTextChange::Unchanged && f.valid && f.hours == h && f.minutes == m) << text;
        }
}

// Spin steps: the new value is the old minus delta, wrapping at both ends of
// every range; parts by selection start, "09:30 AM" having p = 2.
TEST(TimeText, SpinStepsWrapAtBothEndsOfEveryRange)
{
    struct Range { bool is24, pm; int low, high; };
    for (const Range& r : { Range{ true, false, 0, 23 }, Range{ false, false, 0, 11 }, Range{ false, true, 12, 23 } })
        for (int hours = r.low; hours <= r.high; ++hours)
            for (int delta : { -1, 1 }) {
                HyTimeFields f;
                f.hours = hours;
                f.forcePM = r.pm;
                ASSERT_EQ(hy::SpinStep(f, r.is24, 0, 2, delta), HySpinPart::Hours);
                const int expected = hours - delta > r.high ? r.low : hours - delta < r.low ? r.high : hours - delta;
                ASSERT_EQ(f.hours, expected) << hours << " " << delta;
            }
    for (int minutes = 0; minutes < 60; minutes += 5)
        for (int delta : { -1, 0, 1 }) {
            HyTimeFields f;
            f.hours = 9;
            f.minutes = minutes;
            ASSERT_EQ(hy::SpinStep(f, false, 3, 2, delta), HySpinPart::Minutes);
            ASSERT_EQ(f.minutes, (minutes + (delta >= 1 ? 55 : 5)) % 60);
            ASSERT_EQ(f.hours, 9);   // no carry
        }
    HyTimeFields f;
    f.hours = 9;
    f.forceAM = true;
    EXPECT_EQ(hy::SpinStep(f, false, 6, 2, -1), HySpinPart::Designator);
    EXPECT_TRUE(f.hours == 21 && f.forcePM && !f.forceAM);
    hy::SpinStep(f, false, 6, 2, 0);
    EXPECT_TRUE(f.hours == 9 && f.forceAM && !f.forcePM);
    // The part under a character, and the parts' selections.
    EXPECT_EQ((std::vector<HySpinPart>{ hy::SpinPartAt(2, 2), hy::SpinPartAt(3, 2), hy::SpinPartAt(5, 2),
                                        hy::SpinPartAt(6, 2) }),
              (std::vector<HySpinPart>{ HySpinPart::Hours, HySpinPart::Minutes, HySpinPart::Minutes,
                                        HySpinPart::Designator }));
    EXPECT_EQ(hy::SpinSpan(HySpinPart::Designator, 2).start, 6);
    EXPECT_EQ(hy::SpinSpan(HySpinPart::Minutes, 2).end, 5);
}

TEST(TimeText, NumberFieldMinimum)
{
    const struct { const char *text, *outcome; } rows[] = {
        { "3", "5" }, { "", "5" }, { "12", "12" }, { " -3", "5" }, { "abc", "abc" }, { "99999999999", "99999999999" },
        { "5", "5" }, { "4x", "5" }, { "+7", "+7" },
    };
    for (const auto& r : rows) {
        std::string shown = r.text;
        hy::NumberBelowMinimum(r.text, 5, shown);
        EXPECT_EQ(shown, r.outcome) << "\"" << r.text << "\"";
    }
}

}  // namespace
