// Rules of the category dialogs that need no window: the caption, the name
// trim, the merge question and a new category's colour.
#pragma once
#include <string>

namespace hy {

// The caption made from a template containing "%1": the name in place of
// "%1". With an empty name the three characters from "%1" on are cut
// (the placeholder and the character after it, deliberately, so "%1 Categories"
// becomes "Categories"). A template without "%1" stays whole.
std::string CategoryCaption(const std::string& templ, const std::string& name);

// A typed category name with its leading blanks removed; trailing blanks are
// kept on purpose.
std::string TrimCategoryName(const std::string& typed);

// Which question a merge of category "old" into an existing "target" asks:
// a host string id (313, 423, 432, 433), or 0 when no question is asked (313
// with names of exactly the same text).
int MergeQuestionId(bool oldIsSubscription, bool targetIsSubscription,
                    const std::string& oldName, const std::string& targetName);

// The swatch of a new category: the lowest of 1..15 that no listed category
// uses (swatch indexes of the listed categories in used[0..count-1]), else
// 15. Swatch 16 is never chosen automatically, by design.
int NewCategorySwatch(const int* used, int count);

}  // namespace hy
