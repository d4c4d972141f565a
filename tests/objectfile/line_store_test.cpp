// The store against a plain vector of strings: loaded sources under the
// reading rules, then random inserts, removes and in-place overwrites, with
// every line, the search and the written bytes compared after each step.

#include "objectfile/line_store.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "objectfile/source_text.h"
#include "support/failures.h"
#include "support/store_lines.h"
#include "text/byte_scan.h"

namespace korvane {
namespace {

using Lines = std::vector<std::string>;
using testing::failureNumberOf;
using testing::linesOf;

SourceText sourceOf(const std::string& bytes) {
  SourceText text;
  text.bytes = std::make_unique<char[]>(bytes.size() + 1);
  std::memcpy(text.bytes.get(), bytes.data(), bytes.size());
  text.size = bytes.size();
  detail::LineEndCounter counter;
  counter.add(bytes.data(), bytes.data() + bytes.size());
  text.carriageReturns = counter.carriageReturns();
  text.bareLineFeed = counter.bareLineFeed();
  return text;
}

std::string written(const LineStore& store) {
  std::string bytes;
  store.ForEachPiece([&](std::string_view piece, bool lineEndToCome) {
    bytes += piece;
    if (lineEndToCome) bytes += "\r\n";
  });
  return bytes;
}

struct ReadCase {
  const char* name;
  std::string bytes;
  Lines lines;
  bool bareLineFeed;
};

TEST(LineStore, LoadsLinesByTheReadingRules) {
  const ReadCase cases[] = {
      {"empty file", "", {}, false},
      {"CR LF, CR and a last line without end", "a\r\nb\rc", {"a", "b", "c"}, false},
      {"a line end at the end opens none", "a\r\n\r\n", {"a", ""}, false},
      {"lone LF stays in the line", "a\nb\r\nc\n", {"a\nb", "c\n"}, true},
      {"CR then LF across lines", "\r\r\n\n", {"", "", "\n"}, true},
  };
  for (const ReadCase& c : cases) {
    LineStore store;
    SourceText text = sourceOf(c.bytes);
    EXPECT_EQ(text.bareLineFeed, c.bareLineFeed) << c.name;
    store.Load(std::move(text));
    EXPECT_EQ(linesOf(store), c.lines) << c.name;
  }
}

TEST(LineStore, IndexesOutsideTheirRangeFailWithFiveAndChangeNothing) {
  LineStore store;
  testing::addLines(store, {"a", "b"});
  EXPECT_EQ(failureNumberOf([&] { store.AddItem("x", -1); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.AddItem("x", 3); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.RemoveItem(-1); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.RemoveItem(2); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.List(-1); }), 5);
  EXPECT_EQ(store.List(2), "");
  EXPECT_EQ(linesOf(store), (Lines{"a", "b"}));
  store.Clear();
  EXPECT_EQ(store.ListCount(), 0);
  EXPECT_EQ(store.List(0), "");
}

// Inserts, removes and renames at random on a loaded source; the store must
// agree with the model in its lines, its first hit and its written bytes.
TEST(LineStore, AgreesWithAModelThroughRandomEdits) {
  const char* pieces[] = {"LOD 0", "x", "", "LOD", " 0", "\n", "ab"};
  const char* ends[] = {"\r\n", "\r\n", "\r\n", "\r"};
  std::mt19937 random(12);
  for (int round = 0; round < 60; ++round) {
    Lines model;
    for (int line = static_cast<int>(random() % 40); line-- > 0;) {
      std::string text;
      for (int piece = static_cast<int>(random() % 4); piece-- > 0;) text += pieces[random() % 7];
      model.push_back(text);
    }
    std::string bytes;
    for (std::size_t i = 0; i < model.size(); ++i) {
      // A lone CR before an LF would be a CR LF.
      bool nextOpensWithLF = i + 1 < model.size() && model[i + 1].starts_with('\n');
      bytes += model[i] + (nextOpensWithLF ? "\r\n" : ends[random() % 4]);
    }
    if (!model.empty() && !model.back().empty() && random() % 2) {
      bytes.resize(bytes.size() - (bytes.back() == '\n' ? 2 : 1));
    }
    LineStore store;
    store.Load(sourceOf(bytes));
    for (int step = 0; step < 30; ++step) {
      const auto count = static_cast<std::int32_t>(model.size());
      const unsigned action = random() % 3;
      if (action == 0) {
        std::string text = pieces[random() % 7] + std::string(pieces[random() % 7]);
        auto at = static_cast<std::int32_t>(random() % (count + 1));
        store.AddItem(text, at);
        model.insert(model.begin() + at, text);
      } else if (action == 1 && count > 0) {
        auto at = static_cast<std::int32_t>(random() % count);
        store.RemoveItem(at);
        model.erase(model.begin() + at);
      } else if (auto hit = store.Find(0, "LOD 0", detail::findText)) {
        store.Overwrite(hit->index, hit->offset, "LOD 1");
        model[hit->index].replace(hit->offset, 5, "LOD 1");
      }
      ASSERT_EQ(linesOf(store), model) << "round " << round << " step " << step;
      std::string expected;
      for (const std::string& line : model) expected += line + "\r\n";
      ASSERT_EQ(written(store), expected) << "round " << round << " step " << step;
      auto hit = store.Find(1, "LOD", detail::findText);
      std::int32_t first = -1;
      for (std::size_t i = 1; i < model.size() && first < 0; ++i) {
        if (model[i].find("LOD") != std::string::npos) first = static_cast<std::int32_t>(i);
      }
      ASSERT_EQ(hit ? hit->index : -1, first) << "round " << round << " step " << step;
      if (hit) {
        ASSERT_EQ(hit->offset, model[first].find("LOD"));
      }
    }
  }
}

TEST(LineStore, AnOverwriteBeyondItsLineFailsWithFive) {
  LineStore store;
  store.Load(sourceOf("ab\r\ncd"));
  EXPECT_EQ(failureNumberOf([&] { store.Overwrite(0, 1, "xy"); }), 5);
  EXPECT_EQ(linesOf(store), (Lines{"ab", "cd"}));
}

}  // namespace
}  // namespace korvane
