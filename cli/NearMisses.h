// What a user may have meant by a word that isn't known.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelconvert::cli {

/// The known words that begin with `word`; if none does, those that differ from it in the fewest
/// letters, and in few of them. Upper and lower case are one. In the order of `known`.
std::vector<std::string_view> NearMisses(std::string_view word,
                                         std::span<const std::string_view> known);

/// "unknown type 'sdr': did you mean sdr33 or sdr2?", or all that are known if none is near.
/// kind: what the words are, "type".
std::string TellUnknown(std::string_view kind, std::string_view word,
                        std::span<const std::string_view> known);

}  // namespace zelconvert::cli
