// Time fields without a window: reading a loosely typed time ("9", "930",
// "9:3", "7p") into hours and minutes rounded to five, the quarter-hour steps
// of + and -, what each typed character does, the spin field's three parts
// and its steps, and the number field's minimum. Platform-free; the edit
// classes (HyEditTime.h) call these and do only what needs a window.
#pragma once

#include "HyUIExport.h"

#include <string>

// The regional rules a time field reads once.
struct HyTimeRules
{
    std::string separator = ":";   // its first character marks the separator
    std::string am = "AM", pm = "PM";   // designators; compared upper-cased, an empty one matches nothing
    bool is24Hour = false;
    int pmBefore = 0;              // 12-hour clock: an unmarked hour below this is afternoon
};

// What a time field knows of its text.
struct HyTimeFields
{
    int hours = -1;                // -1: no time
    int minutes = 0;
    bool valid = false;
    bool forceAM = false, forcePM = false;
    bool hasSeparator = false;
};

// What reading did to the text.
enum class HyTimeTextChange
{
    Unchanged,
    Emptied,                       // the separator alone: the field is emptied
    Rewritten,                     // `text` replaces it, the caret at its end
};

struct HyTimeRead
{
    HyTimeTextChange change = HyTimeTextChange::Unchanged;
    std::string text;
};

// The parts of the spin field's text, as selections [start, end).
enum class HySpinPart
{
    Hours,
    Minutes,
    Designator,
};

struct HySpan
{
    int start, end;
};

// What the field does with one typed character, in this order.
struct HyTimeCharPlan
{
    bool beep = false;             // refused, with the exclamation sound; nothing else happens
    bool selectAllFirst = false;   // the text is a word: the character replaces it
    bool insert = false;           // the edit inserts the character (Backspace: deletes)
    bool read = false;             // then the text is read
    bool format = false;           // then the time is shown in the user's format
    bool selectAllAfter = false;
};

namespace hy {

// Digits from the start of `text` (a sign or a blank reads 0), saturating at
// 99,999,999 so that later arithmetic never overflows.
HYUI_API int TimeNumber(const std::string& text);

// Reads the text into `fields`: a word ("None", any text with N, O or E) is
// left alone; designators in the text set a mark unless the other one is
// set; then the text's shape gives hours and minutes, the 12-hour rule
// applies, and the result is rounded, carried once and capped at 23:55.
HYUI_API HyTimeRead ReadTime(const std::string& text, const HyTimeRules& rules, HyTimeFields& fields);

// Rounds to a multiple of 5: a remainder of 1 or 2 rounds down, 3 or 4 up.
HYUI_API void RoundMinutes(int& minutes);

// A quarter hour later (up) or earlier, not rounded, stopping at 23:55 and
// 0:00. False, and nothing changed, where the field beeps instead.
HYUI_API bool StepQuarter(HyTimeFields& fields, bool up);

// The plan for a character typed into `text`; the steps and marks it sets
// are applied to `fields` at once. `allowed` is the digits and the separator.
HYUI_API HyTimeCharPlan PlanTimeChar(unsigned char ch, const std::string& text, HyTimeFields& fields,
                                     const HyTimeRules& rules, const std::string& allowed);

// The spin field's part under character `index` of a text whose separator is
// at `separatorAt`, and a part's selection.
HYUI_API HySpinPart SpinPartAt(int index, int separatorAt);
HYUI_API HySpan SpinSpan(HySpinPart part, int separatorAt);

// One spin step of the part holding selection start `selStart`: the new
// value is the old minus `delta`. Hours wrap within 0..23, or 12..23 with
// the afternoon forced, or 0..11, whatever the hours were; the designator
// flips both marks and moves the hours by 12; minutes step by 5 (delta 0
// adds 5) and wrap without carrying. Answers the part stepped.
HYUI_API HySpinPart SpinStep(HyTimeFields& fields, bool is24Hour, int selStart, int separatorAt, int delta);

// The number field's minimum, read as "%d" reads: leading blanks and a sign
// count, overflow saturates. Answers the replacement text when the text is
// empty or holds a number below `minimum`; false when it stays.
HYUI_API bool NumberBelowMinimum(const std::string& text, int minimum, std::string& replacement);

}  // namespace hy
