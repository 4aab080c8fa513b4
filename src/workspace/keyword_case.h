// The canonical case of the language's words, as the editor gives it to the lines that it is handed.
#pragma once

#include <functional>
#include <span>
#include <string_view>

namespace kolvane::workspace {

// The canonical spelling of a reserved word, or an empty text.
std::string_view reservedSpelling(std::string_view word);

// Gives the keywords of one logical line their case, in place; nothing else changes. Left alone are strings,
// comments, attribute lines, words behind a dot or exclamation mark, in brackets or in front of ":=", labels,
// and the names that a Type or Enum declares (`insideBlock`: the line stands in one). Words that are keywords
// in some places only, such as Binary or Step, are taken for keywords there alone. Line ends within the text
// are those of continued lines.
void recaseKeywords(std::span<char> logicalLine, bool insideBlock);

// The parts of code that an editor shows in a colour of their own.
enum class CodePart : unsigned char { kKeyword, kString, kComment };
using VisitPart = std::function<void(CodePart part, std::string_view text)>;

// Tells the parts of a logical line in order; `text` points into it. Keywords are the words that recaseKeywords gives
// their case to, and the sign in front of a directive.
void visitCodeParts(std::string_view logicalLine, bool insideBlock, const VisitPart& visit);

// True when recaseKeywords would do nothing to any of the lines, whatever they stand in; false also when that would
// take a closer look. Far cheaper than to go and see.
bool hasKeywordsSpelled(std::string_view lines);

}  // namespace kolvane::workspace
