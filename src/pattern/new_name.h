#pragma once

#include <string>
#include <vector>

#include "fileset/filename.h"
#include "fileset/tags.h"
#include "fileset/text_store.h"
#include "pattern/match_name.h"
#include "pattern/name_pattern.h"

namespace multirename {

/// Makes one new name after the other from a pattern, using its memory again for each: where no case style is wanted,
/// no name costs an allocation.
class NewNameMaker {
public:
    /// The pattern must outlive the maker and stay as it is.
    explicit NewNameMaker(const NamePattern& pattern);

    /// Makes the entry's new name from what the pattern's parts took of the described part of its old name; its text is
    /// added to `texts` unless it is the old one. A name that the pattern does not match gets what the parts took
    /// before the match failed. Tags read the entry's record, whose details are asked for when a tag needs them. Of the
    /// text that one part gives, 260 characters count.
    void make(Filename& entry, const NameMatch& match, TextStore& texts);

private:
    /// What is done with what one part took.
    enum class Action { Keep, Put, Expand, Number, Wild };

    static Action action_of(const NamePart& part);
    void keep(std::u16string_view taken);
    void put_kept();
    void put_expanded(const NamePart& part, const Filename& entry, const NameMatch& match);

    std::vector<Action> actions_; // by part
    bool keeps_names_; // whatever matches comes out as it is
    bool reads_details_;
    std::u16string name_;
    std::u16string_view kept_; // a stretch of the old name that still has to be added
    std::vector<CapturedText> captured_; // for tags
};

/// Makes the new name of one entry.
void makeNewName(const NamePattern& pattern, Filename& entry, TextStore& texts);

} // namespace multirename
