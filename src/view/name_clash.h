#pragma once
// Moving files into a folder that already holds items of the same names: which ones meet, and
// what is moved after the user's answer. A move never replaces anything without a question.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

enum class ClashAnswer { Replace, Skip, Cancel };

// The sources whose name is already taken in the target folder (`exists` answers for a full
// path). A source that is itself that path (moved onto itself) does not count.
std::vector<std::wstring> NameClashes(const std::vector<std::wstring>& sources, std::wstring_view targetFolder,
                                      const std::function<bool(const std::wstring&)>& exists);

// What is moved: everything on Replace, the sources without a clash on Skip, nothing on Cancel.
std::vector<std::wstring> SourcesToMove(const std::vector<std::wstring>& sources,
                                        const std::vector<std::wstring>& clashes, ClashAnswer answer);

// The names of the clashing items, one a line, at most `shown` of them and then "…".
std::wstring ClashList(const std::vector<std::wstring>& clashes, size_t shown = 10);

}  // namespace tessel
