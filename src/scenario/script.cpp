#include "scenario/script.h"

#include <array>
#include <charconv>

#include "scenario/escapes.h"

namespace korvane::scenario {

namespace {

enum class Argument { None, Text, OptionalText, Number };

struct VerbForm {
  std::string_view word;
  Verb verb;
  bool takesName;
  Argument argument;
};

constexpr std::array kVerbs{
    VerbForm{"cwd", Verb::Cwd, false, Argument::Text},
    VerbForm{"stored", Verb::Stored, false, Argument::OptionalText},
    VerbForm{"start", Verb::Start, false, Argument::None},
    VerbForm{"answer", Verb::Answer, false, Argument::Text},
    VerbForm{"cancel", Verb::Cancel, false, Argument::None},
    VerbForm{"click", Verb::Click, true, Argument::None},
    VerbForm{"type", Verb::Type, true, Argument::OptionalText},
    VerbForm{"leave", Verb::Leave, true, Argument::None},
    VerbForm{"scroll", Verb::Scroll, true, Argument::Number},
    VerbForm{"slide", Verb::Slide, true, Argument::Number},
    VerbForm{"enter", Verb::Enter, false, Argument::None},
    VerbForm{"escape", Verb::Escape, false, Argument::None},
    VerbForm{"close", Verb::Close, false, Argument::None},
    VerbForm{"close-settings", Verb::CloseSettings, false, Argument::None},
    VerbForm{"print", Verb::Print, true, Argument::None},
    VerbForm{"dump", Verb::Dump, true, Argument::None},
};

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::string_view trim(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Splits off the first word; rest keeps what follows, blanks in front removed.
std::string_view firstWord(std::string_view text, std::string_view& rest) {
  std::size_t end = 0;
  while (end < text.size() && !isBlank(text[end])) ++end;
  rest = trim(text.substr(end));
  return text.substr(0, end);
}

}  // namespace

bool comesBeforeStart(Verb verb) {
  return verb == Verb::Cwd || verb == Verb::Stored || verb == Verb::Start;
}

std::optional<Command> parseCommand(std::string_view rawLine, int lineNumber) {
  const std::string_view line = trim(rawLine);
  if (line.empty() || line.front() == '#') return std::nullopt;
  auto fail = [lineNumber](const std::string& what) { return ScriptError(lineNumber, what); };

  std::string_view rest;
  const std::string_view word = firstWord(line, rest);
  const VerbForm* form = nullptr;
  for (const VerbForm& candidate : kVerbs) {
    if (candidate.word == word) form = &candidate;
  }
  if (form == nullptr) throw fail("unknown command \"" + std::string(word) + "\"");

  Command command;
  command.lineNumber = lineNumber;
  command.line = std::string(line);
  command.verb = form->verb;
  const std::string verbName(word);
  if (form->takesName) {
    command.name = std::string(firstWord(rest, rest));
    if (command.name.empty()) throw fail(verbName + " needs a control name");
  }
  switch (form->argument) {
    case Argument::None:
      if (!rest.empty())
        throw fail(verbName + " takes nothing after " + (form->takesName ? "the name" : "it"));
      break;
    case Argument::Text:
    case Argument::OptionalText:
      try {
        command.text = unescapeText(rest);
      } catch (const std::invalid_argument& bad) {
        throw fail(bad.what());
      }
      if (form->argument == Argument::Text && command.text.empty()) throw fail(verbName + " needs a text");
      break;
    case Argument::Number: {
      const char* first = rest.data();
      const char* last = rest.data() + rest.size();
      if (first != last && *first == '+') ++first;
      auto [end, error] = std::from_chars(first, last, command.number);
      if (rest.empty() || error != std::errc() || end != last) {
        throw fail(verbName + " needs a whole number, not \"" + std::string(rest) + "\"");
      }
      break;
    }
  }
  return command;
}

std::optional<Command> ScriptReader::next() {
  std::string line;
  while (std::getline(m_in, line)) {
    ++m_lineNumber;
    if (std::optional<Command> command = parseCommand(line, m_lineNumber)) return command;
  }
  return std::nullopt;
}

}  // namespace korvane::scenario
