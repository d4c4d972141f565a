// The store against a plain vector of strings: loaded sources under the
// reading rules, then random inserts, removes and edits in place, with every
// line, the search and the written bytes compared after each step.

#include "objectfile/line_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <span>
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

LineStore loaded(const std::string& bytes) {
  LineStore store;
  store.Load(sourceOf(bytes));
  return store;
}

std::string written(const LineStore& store) {
  std::string bytes;
  store.ForEachPiece([&](std::string_view piece, bool lineEndToCome) {
    bytes += piece;
    if (lineEndToCome) bytes += "\r\n";
  });
  return bytes;
}

TEST(LineStore, IndexesOutsideTheirRangeFailWithFiveAndChangeNothing) {
  LineStore store = loaded("ab\r\ncd");
  EXPECT_EQ(failureNumberOf([&] { store.AddItem("x", -1); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.AddItem("x", 3); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.RemoveItem(-1); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.RemoveItem(2); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.List(-1); }), 5);
  EXPECT_EQ(store.List(2), "");
  EXPECT_EQ(linesOf(store), (Lines{"ab", "cd"}));
  store.Clear();
  EXPECT_EQ(store.ListCount(), 0);
  EXPECT_EQ(store.List(0), "");
}

// Inserts, removes and renames at random on a loaded source long enough to
// reach past several noted CRs; the store must agree with the model in its
// lines, its first hit and its written bytes.
TEST(LineStore, AgreesWithAModelThroughRandomEdits) {
  const char* pieces[] = {"LOD 0", "x", "", "LOD", " 0", "\n", "ab"};
  const char* ends[] = {"\r\n", "\r\n", "\r\n", "\r"};
  std::mt19937 random(12);
  for (int round = 0; round < 60; ++round) {
    Lines model(random() % 160);
    std::string bytes;
    for (std::string& line : model) {
      for (int piece = static_cast<int>(random() % 4); piece-- > 0;) line += pieces[random() % 7];
    }
    for (std::size_t i = 0; i < model.size(); ++i) {
      // A lone CR before an LF would be a CR LF.
      bool nextOpensWithLF = i + 1 < model.size() && model[i + 1].starts_with('\n');
      // Half the sources end every line in CR LF, and are written in one piece.
      bytes += model[i] + (nextOpensWithLF ? "\r\n" : ends[random() % (round % 2 ? 4 : 3)]);
    }
    if (!model.empty() && !model.back().empty() && random() % 2) {
      bytes.resize(bytes.size() - (bytes.back() == '\n' ? 2 : 1));
    }
    LineStore store = loaded(bytes);
    for (int step = 0; step < 30; ++step) {
      SCOPED_TRACE("round " + std::to_string(round) + " step " + std::to_string(step));
      const auto count = static_cast<LineStore::Index>(model.size());
      const unsigned action = random() % 3;
      if (action == 0) {
        // Often a second line right behind the first, or a copy of a stored line.
        auto at = static_cast<LineStore::Index>(random() % (count + 1));
        for (int more = static_cast<int>(random() % 2); more >= 0; --more, ++at) {
          const auto copied =
              model.empty() || random() % 4 ? -1 : static_cast<LineStore::Index>(random() % model.size());
          const std::string text =
              copied >= 0 ? model[copied] : pieces[random() % 7] + std::string(pieces[random() % 7]);
          store.AddItem(copied >= 0 ? store.List(copied) : std::string_view(text), at);
          model.insert(model.begin() + at, text);
        }
      } else if (action == 1 && count > 0) {
        auto at = static_cast<LineStore::Index>(random() % count);
        store.RemoveItem(at);
        model.erase(model.begin() + at);
      } else if (action == 2) {
        // Lines whose first hit stands at an odd place are left alone.
        std::vector<LineStore::Index> left;
        for (std::size_t i = 0; i < model.size(); ++i) {
          const std::size_t at = model[i].find("LOD 0");
          if (at == std::string::npos) continue;
          if (at % 2) left.push_back(static_cast<LineStore::Index>(i));
          if (at % 2 == 0) model[i][at + 4] = '1';
        }
        ASSERT_EQ(store.EditLinesHolding("LOD 0", detail::findText,
                                         [](std::span<char> line, std::size_t offset) {
                                           if (offset % 2) return false;
                                           line[offset + 4] = '1';
                                           return true;
                                         }),
                  left);
      }
      ASSERT_EQ(linesOf(store), model);
      std::string expected;
      for (const std::string& line : model) expected += line + "\r\n";
      ASSERT_EQ(written(store), expected);
      const auto from = static_cast<LineStore::Index>(random() % (model.size() + 2)) - 1;
      auto hit = store.Find(from, "LOD", detail::findText);
      std::size_t first = static_cast<std::size_t>(std::max(from, LineStore::Index{0}));
      while (first < model.size() && model[first].find("LOD") == std::string::npos) ++first;
      ASSERT_EQ(hit ? hit->index : -1, first < model.size() ? static_cast<LineStore::Index>(first) : -1);
      ASSERT_EQ(hit ? hit->offset : 0, hit ? model[first].find("LOD") : 0);
    }
  }
}

}  // namespace
}  // namespace korvane
