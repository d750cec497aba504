#pragma once

#include <string_view>

namespace snipdeck {

class RtfParser;

/// What a control word is for, and what its parameter means.
struct RtfControlWord {
  enum class Kind : unsigned char {
    Flag,         ///< The handler gets `argument`, whatever the parameter.
    Toggle,       ///< The handler gets 0 for the parameter 0, else `argument`.
    Value,        ///< The handler gets the parameter, or `argument` without one.
    Character,    ///< Stands for the character `argument`.
    Destination,  ///< Begins a group of its own kind; the handler may set what receives it.
    Skip,         ///< Begins a group that shows nothing.
  };
  using Handler = void (*)(RtfParser& parser, int value);

  std::string_view word;
  Kind kind;
  int argument;
  Handler handler;
};

/// The entry of a word; null for one that the table does not have.
const RtfControlWord* FindControlWord(std::string_view word);

}  // namespace snipdeck
