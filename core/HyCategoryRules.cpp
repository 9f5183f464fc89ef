#include "HyCategoryRules.h"

namespace hy {

std::string CategoryCaption(const std::string& templ, const std::string& name)
{
    const size_t at = templ.find("%1");
    if (at == std::string::npos) return templ;
    std::string out = templ;
    if (name.empty())
        out.erase(at, 3);   // the placeholder and the character after it, intended
    else
        out.replace(at, 2, name);
    return out;
}

std::string TrimCategoryName(const std::string& typed)
{
    const size_t first = typed.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : typed.substr(first);
}

int MergeQuestionId(bool oldIsSubscription, bool targetIsSubscription,
                    const std::string& oldName, const std::string& targetName)
{
    if (oldIsSubscription && targetIsSubscription) return 433;
    if (oldIsSubscription) return 432;
    if (targetIsSubscription) return 423;
    return oldName == targetName ? 0 : 313;   // exact, case-sensitive comparison
}

int NewCategorySwatch(const int* used, int count)
{
    for (int swatch = 1; swatch <= 15; ++swatch)
    {
        bool taken = false;
        for (int i = 0; i < count && !taken; ++i) taken = used[i] == swatch;
        if (!taken) return swatch;
    }
    return 15;   // all fifteen in use: 15 again, never 16 (intended)
}

}  // namespace hy
