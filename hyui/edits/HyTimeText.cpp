#include "HyTimeText.h"

#include <climits>
#include <cstdint>

namespace {

constexpr int kMaxNumber = 99999999;

std::string Upper(std::string text)
{
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = (char)(c - 'a' + 'A');
    return text;
}

bool ContainsAny(const std::string& text, const char* letters)
{
    return text.find_first_of(letters) != std::string::npos;
}

bool Contains(const std::string& text, const std::string& part)
{
    return !part.empty() && text.find(part) != std::string::npos;
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// What a typed character does.
enum class HyTimeKey
{
    General,    // inserted (after TimeBeforeInsert), then read unless Backspace
    StepUp,     // +, =, or Space in an incomplete entry: a quarter hour later
    StepDown,   // -
    ForceAM,    // A: morning (refused on a 24-hour clock or without a time)
    ForcePM,    // P
    Drop,       // anything else: dropped without a sound
};

HyTimeKey ClassifyTimeChar(unsigned char ch, const HyTimeFields& f, const std::string& allowed)
{
    switch (ch) {
    case '\b':
        return HyTimeKey::General;
    case ' ':   // an incomplete entry steps on Space (intended)
        return f.hasSeparator && f.valid ? HyTimeKey::General : HyTimeKey::StepUp;
    case '+':
    case '=':
        return HyTimeKey::StepUp;
    case '-':
        return HyTimeKey::StepDown;
    case 'A':
    case 'a':
        return HyTimeKey::ForceAM;
    case 'P':
    case 'p':
        return HyTimeKey::ForcePM;
    default:
        return ch != 0 && allowed.find((char)ch) != std::string::npos ? HyTimeKey::General : HyTimeKey::Drop;
    }
}

bool TimeBeforeInsert(const std::string& original, HyTimeFields& f)
{
    const std::string text = Upper(original);
    if (text.find('P') != std::string::npos && !f.forceAM)
        f.forcePM = true;
    if (text.find('A') != std::string::npos && !f.forcePM)
        f.forceAM = true;
    return ContainsAny(text, "NOE");
}

}  // namespace

namespace hy {

int TimeNumber(const std::string& text)
{
    int n = 0;
    for (size_t i = 0; i < text.size() && IsDigit(text[i]); ++i)
        n = n > (kMaxNumber - (text[i] - '0')) / 10 ? kMaxNumber : n * 10 + (text[i] - '0');
    return n;
}

void RoundMinutes(int& minutes)
{
    const int r = minutes % 5;
    if (r == 1 || r == 2)
        minutes -= r;
    else if (r == 3 || r == 4)
        minutes += 5 - r;
}

HyTimeRead ReadTime(const std::string& original, const HyTimeRules& rules, HyTimeFields& f)
{
    HyTimeRead read;
    const std::string text = Upper(original);
    const size_t length = text.size();
    const size_t p = rules.separator.empty() ? std::string::npos : text.find(Upper(rules.separator)[0]);
    f.hasSeparator = p != std::string::npos;
    if (length == 0) {
        f.hours = 0;
        f.minutes = 0;
        f.valid = false;
        return read;
    }
    if (ContainsAny(text, "NOE"))   // a word, not a time
        return read;
    if (Contains(text, Upper(rules.pm)) && !f.forceAM)
        f.forcePM = true;
    if (Contains(text, Upper(rules.am)) && !f.forcePM)
        f.forceAM = true;
    if (length == 1) {
        if (f.hasSeparator) {   // the separator alone
            f.valid = false;
            read.change = HyTimeTextChange::Emptied;
            return read;
        }
        f.hours = TimeNumber(text);
        f.minutes = 0;
    } else if (!f.hasSeparator && length == 2) {
        const int n = TimeNumber(text);
        if (n <= 12) {
            f.hours = n;
            f.minutes = 0;
        } else if (n <= 24 && rules.is24Hour) {
            f.hours = n;
            f.minutes = 0;
            f.hasSeparator = false;
        } else {   // "75" is 7:50
            read.change = HyTimeTextChange::Rewritten;
            read.text = original.substr(0, 1) + rules.separator + original.substr(1);
            f.hours = TimeNumber(text.substr(0, 1));
            f.minutes = TimeNumber(text.substr(1)) * 10;
            f.hasSeparator = true;
        }
    } else if (!f.hasSeparator) {
        read.change = HyTimeTextChange::Rewritten;
        if (!ContainsAny(text, "AMP")) {   // "123" is 12:30
            read.text = original.substr(0, 2) + rules.separator + original.substr(2);
            f.hours = TimeNumber(text.substr(0, 2));
            f.minutes = TimeNumber(text.substr(2)) * 10;
        } else {
            read.text = original.substr(0, 1);
            f.hours = TimeNumber(text.substr(0, 1));
            f.minutes = 0;
        }
        f.hasSeparator = true;
    } else {
        f.hours = TimeNumber(text.substr(0, p));
        const std::string after = text.substr(p + 1);
        f.minutes = after.empty() ? 0 : after.size() == 1 ? TimeNumber(after) * 10 : TimeNumber(after.substr(0, 2));
    }
    if (!rules.is24Hour) {
        if (!f.forceAM && !f.forcePM && f.hours < rules.pmBefore)
            f.hours += 12;
        if (f.forceAM && f.hours >= 12)
            f.hours -= 12;
        else if (f.forcePM && f.hours < 12)
            f.hours += 12;
    }
    f.valid = true;
    RoundMinutes(f.minutes);
    if (f.minutes >= 60) {   // one carry only: a pasted "1234" stays 13:280 (intended)
        f.hours += 1;
        f.minutes -= 60;
    }
    if ((int64_t)f.hours * 100 + f.minutes > 2355) {
        f.hours = 23;
        f.minutes = 55;
    }
    return read;
}

bool StepQuarter(HyTimeFields& f, bool up)
{
    if (up) {
        if ((f.hours == 23 && f.minutes == 55) || f.hours == -1)
            return false;
        f.minutes += 15;
        if (f.minutes >= 60) {
            if (f.hours + 1 == 24) {
                f.hours = 23;
                f.minutes = 55;
            } else {
                f.hours += 1;
                f.minutes -= 60;
            }
        }
        return true;
    }
    if (f.hours <= 0 && f.minutes <= 0)
        return false;
    f.minutes -= 15;
    if (f.minutes < 0) {
        if (f.hours - 1 < 0) {
            f.hours = 0;
            f.minutes = 0;
        } else {
            f.hours -= 1;
            f.minutes += 60;
        }
    }
    return true;
}

HyTimeCharPlan PlanTimeChar(unsigned char ch, const std::string& text, HyTimeFields& f, const HyTimeRules& rules,
                            const std::string& allowed)
{
    HyTimeCharPlan plan;
    const HyTimeKey kind = ClassifyTimeChar(ch, f, allowed);
    switch (kind) {
    case HyTimeKey::StepUp:
    case HyTimeKey::StepDown:   // steps are not rounded
        plan.beep = !StepQuarter(f, kind == HyTimeKey::StepUp);
        plan.format = !plan.beep;
        break;
    case HyTimeKey::ForceAM:
    case HyTimeKey::ForcePM:
        plan.beep = rules.is24Hour || f.hours == -1;
        if (!plan.beep) {
            f.forceAM = kind == HyTimeKey::ForceAM;
            f.forcePM = !f.forceAM;
            plan.read = plan.format = plan.selectAllAfter = true;
        }
        break;
    case HyTimeKey::General:
        if (ch == '\b')
            f.valid = false;
        plan.selectAllFirst = TimeBeforeInsert(text, f);
        plan.insert = true;
        plan.read = ch != '\b';
        break;
    case HyTimeKey::Drop:
        break;
    }
    return plan;
}

HySpinPart SpinPartAt(int index, int p)
{
    return index > p + 3 ? HySpinPart::Designator : index > p ? HySpinPart::Minutes : HySpinPart::Hours;
}

HySpan SpinSpan(HySpinPart part, int p)
{
    switch (part) {
    case HySpinPart::Hours:
        return HySpan{ 0, p };
    case HySpinPart::Minutes:
        return HySpan{ p + 1, p + 3 };
    default:
        return HySpan{ p + 4, p + 6 };
    }
}

HySpinPart SpinStep(HyTimeFields& f, bool is24Hour, int selStart, int p, int delta)
{
    if (selStart <= p) {
        const int low = is24Hour || !f.forcePM ? 0 : 12, high = is24Hour || f.forcePM ? 23 : 11;
        const int64_t next = (int64_t)f.hours - delta;
        f.hours = next > high ? low : next < low ? high : (int)next;
        return HySpinPart::Hours;
    }
    if (selStart > p + 3) {
        f.hours = f.hours < 12 ? f.hours + 12 : f.hours - 12;
        f.forcePM = !f.forcePM;
        f.forceAM = !f.forceAM;
        return HySpinPart::Designator;
    }
    f.minutes += delta >= 1 ? -5 : 5;   // the minute field spins on its own: no carry (intended)
    if (f.minutes >= 60)
        f.minutes = 0;
    else if (f.minutes < 0)
        f.minutes = 55;
    return HySpinPart::Minutes;
}

bool NumberBelowMinimum(const std::string& text, int minimum, std::string& replacement)
{
    size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r')))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        negative = text[i++] == '-';
    const bool readable = i < text.size() && IsDigit(text[i]);
    int64_t n = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i)
        n = n > INT_MAX ? n : n * 10 + (text[i] - '0');
    n = negative ? (n > INT_MAX ? INT_MIN : -n) : (n > INT_MAX ? INT_MAX : n);
    if (!text.empty() && (!readable || n >= minimum))
        return false;
    replacement = std::to_string(minimum);
    return true;
}

}  // namespace hy
