#include "scenario/script.h"

#include <array>
#include <cctype>
#include <charconv>

#include "scenario/escapes.h"

namespace korvane::scenario {

namespace {

enum class Argument { None, Text, OptionalText, Number, Keys, BarKeys, Choice, Letter };

struct VerbForm {
  std::string_view word;
  Verb verb;
  bool takesName;
  Argument argument;
  std::string_view choices = {};  // for Choice: the words, in the order of the error message
};

constexpr std::array kVerbs{
    VerbForm{"cwd", Verb::Cwd, false, Argument::Text},
    VerbForm{"stored", Verb::Stored, false, Argument::OptionalText},
    VerbForm{"start", Verb::Start, false, Argument::OptionalText},
    VerbForm{"answer", Verb::Answer, false, Argument::Text},
    VerbForm{"cancel", Verb::Cancel, false, Argument::None},
    VerbForm{"click", Verb::Click, true, Argument::None},
    VerbForm{"type", Verb::Type, true, Argument::OptionalText},
    VerbForm{"leave", Verb::Leave, true, Argument::None},
    VerbForm{"scroll", Verb::Scroll, true, Argument::Number},
    VerbForm{"slide", Verb::Slide, true, Argument::Number},
    VerbForm{"keys", Verb::Keys, true, Argument::Keys},
    VerbForm{"key", Verb::Key, true, Argument::BarKeys},
    VerbForm{"arrow", Verb::Arrow, true, Argument::Choice, "up down left right"},
    VerbForm{"track", Verb::Track, true, Argument::Choice, "before after"},
    VerbForm{"alt", Verb::Alt, false, Argument::Letter},
    VerbForm{"tab", Verb::Tab, false, Argument::None},
    VerbForm{"backtab", Verb::Backtab, false, Argument::None},
    VerbForm{"enter", Verb::Enter, false, Argument::None},
    VerbForm{"escape", Verb::Escape, false, Argument::None},
    VerbForm{"drop", Verb::Drop, true, Argument::Text},
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

struct KeyName {
  std::string_view name;
  Key key;
  bool onBars;  // one of the keys of a slider or scroll bar
};

constexpr std::array kKeyNames{
    KeyName{"Home", Key::Home, true},
    KeyName{"End", Key::End, true},
    KeyName{"Left", Key::Left, true},
    KeyName{"Right", Key::Right, true},
    KeyName{"PgUp", Key::PgUp, true},
    KeyName{"PgDn", Key::PgDn, true},
    KeyName{"Backspace", Key::Backspace, false},
    KeyName{"Delete", Key::Delete, false},
    KeyName{"Up", Key::Up, false},
    KeyName{"Down", Key::Down, false},
};

// KEYS, escapes already resolved: "{Home}" is a key, "{{" and "}}" braces,
// the rest text. Throws std::invalid_argument with what is wrong.
std::vector<KeyStroke> parseKeys(std::string_view text, bool barKeysOnly) {
  std::vector<KeyStroke> keys;
  auto typed = [&keys](char c) {
    if (keys.empty() || keys.back().key != Key::Text) keys.push_back({});
    keys.back().text += c;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if ((c == '{' || c == '}') && i + 1 < text.size() && text[i + 1] == c) {
      typed(c);
      ++i;
      continue;
    }
    if (c == '}') throw std::invalid_argument("a lone } (write }} for a brace)");
    if (c != '{') {
      typed(c);
      continue;
    }
    const std::size_t close = text.find('}', i);
    if (close == std::string_view::npos) throw std::invalid_argument("a { with no } (write {{ for a brace)");
    const std::string_view name = text.substr(i + 1, close - i - 1);
    const KeyName* found = nullptr;
    for (const KeyName& candidate : kKeyNames) {
      if (candidate.name == name) found = &candidate;
    }
    if (found == nullptr) throw std::invalid_argument("unknown key {" + std::string(name) + "}");
    keys.push_back({found->key, {}});
    i = close;
  }
  if (barKeysOnly) {
    for (const KeyStroke& stroke : keys) {
      bool allowed = false;
      for (const KeyName& candidate : kKeyNames) allowed |= candidate.onBars && candidate.key == stroke.key;
      if (!allowed) throw std::invalid_argument("key presses only {Left} {Right} {PgUp} {PgDn} {Home} {End}");
    }
  }
  return keys;
}

bool isChoice(std::string_view choices, std::string_view word) {
  std::string_view rest;
  while (!choices.empty()) {
    if (firstWord(choices, rest) == word) return true;
    choices = rest;
  }
  return false;
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
    case Argument::Keys:
    case Argument::BarKeys:
      try {
        command.text = unescapeText(rest);
        if (form->argument == Argument::Keys || form->argument == Argument::BarKeys)
          command.keys = parseKeys(command.text, form->argument == Argument::BarKeys);
      } catch (const std::invalid_argument& bad) {
        throw fail(bad.what());
      }
      if (form->argument != Argument::OptionalText && command.text.empty())
        throw fail(verbName + " needs a text");
      break;
    case Argument::Choice:
      if (!isChoice(form->choices, rest))
        throw fail(verbName + " needs one of " + std::string(form->choices) + ", not \"" + std::string(rest) +
                   "\"");
      command.text = std::string(rest);
      break;
    case Argument::Letter:
      if (rest.size() != 1 || !std::isalnum(static_cast<unsigned char>(rest[0])))
        throw fail(verbName + " needs one letter or digit, not \"" + std::string(rest) + "\"");
      command.text = std::string(rest);
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
