// The reader of the meeting side's separated texts (the join-meeting and settings records): a text cut
// into pieces at a separator, each piece without the blanks at its ends.
#pragma once

#include <cstddef>
#include <string_view>

namespace oet {

// The piece without the blanks at either end, the ones the host string's Trim takes off (space, tab,
// carriage return, line feed, vertical tab, form feed).
template <class Char>
std::basic_string_view<Char> TrimmedPiece(std::basic_string_view<Char> piece) {
  const auto blank = [](Char c) {
    return c == Char(' ') || c == Char('\t') || c == Char('\r') || c == Char('\n') || c == Char('\v') ||
           c == Char('\f');
  };
  size_t end = piece.size();
  while (end > 0 && blank(piece[end - 1]))
    --end;
  size_t begin = 0;
  while (begin < end && blank(piece[begin]))
    ++begin;
  return piece.substr(begin, end - begin);
}

// Hands the first `max_pieces` pieces of `text` (separated by `separator`), trimmed, to
// `take(index, piece)` in order, as views into the text, and returns how many it handed: the pieces
// the text holds, up to max_pieces. An empty text holds none, and a separator that ends the text
// starts no further piece ("a|" holds one piece).
template <class Char, class Take>
int ForEachTrimmedPiece(std::basic_string_view<Char> text, Char separator, int max_pieces, Take&& take) {
  int reached = 0;
  size_t start = 0;
  for (; reached < max_pieces && start < text.size(); ++reached) {
    const size_t found = text.find(separator, start);
    const size_t end = found == std::basic_string_view<Char>::npos ? text.size() : found;
    take(reached, TrimmedPiece(text.substr(start, end - start)));
    start = end == text.size() ? text.size() : end + 1;
  }
  return reached;
}

}  // namespace oet
