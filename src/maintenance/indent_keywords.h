// What the indenter knows of the language: the words that a statement begins with.
//
// All in upper case. A statement matches a keyword when it begins with it, in any case, and a blank, a colon or nothing
// follows.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kolvane::maintenance {

inline constexpr std::size_t kBlocks = 13;
// Select Case and End Select count twice: its labels stand one level in and their statements two.
inline constexpr std::array<std::string_view, kBlocks> kBlockOpeners{
    "IF",   "ELSEIF", "ELSE", "#IF", "#ELSEIF", "#ELSE",      "SELECT CASE",
    "CASE", "WITH",   "FOR",  "DO",  "WHILE",   "SELECT CASE"};
inline constexpr std::array<std::string_view, kBlocks> kBlockClosers{
    "ELSEIF",     "ELSE",     "END IF", "#ELSEIF", "#ELSE", "#END IF",   "CASE",
    "END SELECT", "END WITH", "NEXT",   "LOOP",    "WEND",  "END SELECT"};

// A procedure, Type or Enum starts with one of the prefixes and one of the words.
inline constexpr std::array<std::string_view, 8> kStartPrefixes{
    "", "STATIC ", "PUBLIC ", "PUBLIC STATIC ", "PRIVATE ", "PRIVATE STATIC ", "FRIEND ", "FRIEND STATIC "};
inline constexpr std::array<std::string_view, 7> kStartWords{
    "SUB", "FUNCTION", "PROPERTY LET", "PROPERTY GET", "PROPERTY SET", "TYPE", "ENUM"};
inline constexpr std::array<std::string_view, 5> kProcedureEnds{"END SUB", "END FUNCTION", "END PROPERTY",
                                                                "END TYPE", "END ENUM"};

// What the words that a statement begins with stand for.
struct StatementStart {
  int opens = 0;  // how many rows of the block tables match
  int closes = 0;
  bool startsProcedure = false;  // or a Type or Enum
  bool startsTypeOrEnum = false;
  bool endsProcedure = false;
};

// `statement` without blanks at either end. No time is spent on a statement that begins with another letter than the
// keywords do, and little on others.
StatementStart statementStart(std::string_view statement);

// Whether `text` begins with `keyword` (upper case), in any case.
bool beginsWith(std::string_view text, std::string_view keyword);
// The same with a blank, a colon or nothing behind it.
bool matchesKeyword(std::string_view statement, std::string_view keyword);

}  // namespace kolvane::maintenance
