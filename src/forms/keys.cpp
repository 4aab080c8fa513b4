#include <array>
#include <string>
#include <string_view>

#include "forms/control.h"

namespace kolvane::forms::keys {

namespace {

// Keys of the main block beside letters, as the US layout has them.
struct KeyRow {
  int key;
  char plain;
  char shifted;
};
constexpr std::array<KeyRow, 21> kCharacters{{
    {48, '0', ')'},   {49, '1', '!'},  {50, '2', '@'},   {51, '3', '#'},  {52, '4', '$'},  {53, '5', '%'},
    {54, '6', '^'},   {55, '7', '&'},  {56, '8', '*'},   {57, '9', '('},  {186, ';', ':'}, {187, '=', '+'},
    {188, ',', '<'},  {189, '-', '_'}, {190, '.', '>'},  {191, '/', '?'}, {192, '`', '~'}, {219, '[', '{'},
    {220, '\\', '|'}, {221, ']', '}'}, {222, '\'', '"'},
}};
constexpr std::string_view kPad = "0123456789*+,-./";  // keys 96 to 111

struct NameRow {
  int key;
  std::string_view name;
};
constexpr std::array<NameRow, 15> kNames{{{kBack, "Bksp"},
                                          {kTab, "Tab"},
                                          {kEnter, "Enter"},
                                          {kEscape, "Esc"},
                                          {kSpace, "Space"},
                                          {kPageUp, "PgUp"},
                                          {kPageDown, "PgDn"},
                                          {kEnd, "End"},
                                          {kHome, "Home"},
                                          {kLeft, "Left"},
                                          {kUp, "Up"},
                                          {kRight, "Right"},
                                          {kDown, "Down"},
                                          {kInsert, "Ins"},
                                          {kDelete, "Del"}}};

std::string plainName(int key) {
  for (const auto& row : kNames)
    if (row.key == key) return std::string(row.name);
  if (key >= kF1 && key <= kF1 + 15) return "F" + std::to_string(key - kF1 + 1);
  if (key >= 96 && key <= 111) return std::string("Num ") + kPad[static_cast<std::size_t>(key - 96)];
  for (const auto& row : kCharacters)
    if (row.key == key) return std::string(1, row.plain);
  if (key >= 'A' && key <= 'Z') return std::string(1, static_cast<char>(key));
  return "Key " + std::to_string(key);
}

}  // namespace

int character(int key, int shift) {
  if ((shift & kAlt) != 0) return 0;
  const bool letter = key >= 'A' && key <= 'Z';
  if ((shift & kCtrl) != 0) return letter ? key - 'A' + 1 : 0;
  const bool shifted = (shift & kShift) != 0;
  if (letter) return shifted ? key : key - 'A' + 'a';
  if (key == kSpace || key == kBack || key == kEnter || key == kEscape || key == kTab) return key;
  if (key >= 96 && key <= 111) return kPad[static_cast<std::size_t>(key - 96)];
  for (const auto& row : kCharacters)
    if (row.key == key) return shifted ? row.shifted : row.plain;
  return 0;
}

std::string name(int key, int shift) {
  if (key == 0) return {};
  std::string result;
  if ((shift & kCtrl) != 0) result += "Ctrl+";
  if ((shift & kShift) != 0) result += "Shift+";
  if ((shift & kAlt) != 0) result += "Alt+";
  return result + plainName(key);
}

}  // namespace kolvane::forms::keys
