#pragma once
// A scenario script: one command a line, read as it is needed so that a
// script on standard input can be fed while the transcript comes back.
//
//   cwd DIR | stored [TEXT] | start [FILE]               before the program starts
//   answer PATH | cancel                                 queued file-dialog answers
//   click NAME | type NAME [TEXT] | leave NAME           the author's actions
//   scroll NAME N | slide NAME N | enter | escape | close | close-settings
//   keys NAME KEYS | key NAME KEYS                       keys pressed on a control
//   arrow NAME up|down|left|right | track NAME before|after
//   alt LETTER | tab | backtab                           keys in the active window
//   drop NAME FILE                                       a file dropped on a control
//   print NAME | dump NAME                               looking
//
// Blank lines and lines whose first character is '#' are skipped. Blanks
// around the text argument are not part of it: "\s" writes one.

#include <istream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::scenario {

enum class Verb {
  Cwd,
  Stored,
  Start,
  Answer,
  Cancel,
  Click,
  Type,
  Leave,
  Scroll,
  Slide,
  Keys,
  Key,
  Arrow,
  Track,
  Alt,
  Tab,
  Backtab,
  Enter,
  Escape,
  Drop,
  Close,
  CloseSettings,
  Print,
  Dump,
};

// A named key of KEYS ("{Home}"), or Text: a piece typed key by key.
enum class Key { Text, Home, End, Left, Right, Backspace, Delete, Up, Down, PgUp, PgDn };

struct KeyStroke {
  Key key = Key::Text;
  std::string text;  // for Key::Text
  bool operator==(const KeyStroke&) const = default;
};

struct Command {
  int lineNumber = 0;
  std::string line;  // as written, without the blanks around it
  Verb verb = Verb::Start;
  std::string name;  // the control, window or shared value
  std::string text;  // the text argument, escapes resolved; the word of arrow and track
  long long number = 0;
  std::vector<KeyStroke> keys;  // keys and key
};

// Whether the command belongs before `start` (true) or needs the running program (false).
bool comesBeforeStart(Verb verb);

// A line that is no command of the format.
class ScriptError : public std::runtime_error {
 public:
  ScriptError(int lineNumber, const std::string& what) : std::runtime_error(what), m_lineNumber(lineNumber) {}
  int lineNumber() const { return m_lineNumber; }

 private:
  int m_lineNumber;
};

// nullopt for a blank line or a comment; ScriptError for anything malformed.
std::optional<Command> parseCommand(std::string_view line, int lineNumber);

class ScriptReader {
 public:
  explicit ScriptReader(std::istream& in) : m_in(in) {}
  // The next command, or nullopt at the end of the script.
  std::optional<Command> next();

 private:
  std::istream& m_in;
  int m_lineNumber = 0;
};

}  // namespace korvane::scenario
