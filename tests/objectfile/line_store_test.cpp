#include "objectfile/line_store.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "runtime/failure.h"
#include "support/failures.h"

namespace korvane {
namespace {

std::vector<std::string> linesOf(const LineStore& store) {
  std::vector<std::string> lines;
  for (std::int32_t i = 0; i < store.ListCount(); ++i) lines.emplace_back(store.List(i));
  return lines;
}

using testing::failureNumberOf;

TEST(LineStore, AppendsInsertsAndRemovesInOrder) {
  LineStore store;
  store.AddItem("b");
  store.AddItem("d");
  store.AddItem("a", 0);
  store.AddItem("c", 2);
  store.AddItem("e", 4);  // ListCount appends
  EXPECT_EQ(linesOf(store), (std::vector<std::string>{"a", "b", "c", "d", "e"}));
  store.RemoveItem(0);
  store.RemoveItem(3);
  EXPECT_EQ(linesOf(store), (std::vector<std::string>{"b", "c", "d"}));
}

TEST(LineStore, ListAtOrBeyondTheEndIsEmptyAndChangesNothing) {
  LineStore store;
  EXPECT_EQ(store.List(0), "");
  store.AddItem("only");
  EXPECT_EQ(store.List(1), "");
  EXPECT_EQ(store.List(1000), "");
  EXPECT_EQ(store.ListCount(), 1);
}

TEST(LineStore, EmptyLinesAndDuplicatesKeepTheirPlaces) {
  LineStore store;
  for (const char* text : {"", "x", "", "x"}) store.AddItem(text);
  EXPECT_EQ(linesOf(store), (std::vector<std::string>{"", "x", "", "x"}));
}

TEST(LineStore, BadIndexesFailWithNumberFiveAndChangeNothing) {
  LineStore store;
  store.AddItem("a");
  store.AddItem("b");
  EXPECT_EQ(failureNumberOf([&] { store.AddItem("x", 3); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.AddItem("x", -1); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.RemoveItem(2); }), 5);
  EXPECT_EQ(failureNumberOf([&] { store.RemoveItem(-1); }), 5);
  EXPECT_EQ(failureNumberOf([&] { (void)store.List(-1); }), 5);
  EXPECT_EQ(linesOf(store), (std::vector<std::string>{"a", "b"}));
}

TEST(LineStore, ClearEmptiesAndTheStoreCanBeFilledAgain) {
  LineStore store;
  store.Clear();
  store.AddItem("a");
  store.Clear();
  EXPECT_EQ(store.ListCount(), 0);
  store.AddItem("b");
  EXPECT_EQ(linesOf(store), (std::vector<std::string>{"b"}));
}

TEST(LineStore, KeepsLongLinesAndEveryByteValue) {
  LineStore store;
  std::string longLine(3 << 20, 'L');
  std::string bytes;
  for (int c = 0; c < 256; ++c) bytes += static_cast<char>(c);
  store.AddItem("short");
  store.AddItem(longLine);
  store.AddItem(bytes);
  store.AddItem("after");
  EXPECT_EQ(store.List(1), longLine);
  EXPECT_EQ(store.List(2), bytes);
  EXPECT_EQ(store.List(3), "after");
}

// The gap buffer against a plain vector, over random inserts, removals and
// the front-to-back replacement that the rewriting does.
TEST(LineStore, RandomEditsMatchAPlainList) {
  std::mt19937 random(7);
  LineStore store;
  std::vector<std::string> model;
  for (int step = 0; step < 20000; ++step) {
    int count = static_cast<int>(model.size());
    int choice = static_cast<int>(random() % 10);
    std::string text = "line " + std::to_string(step);
    if (choice < 4 || count == 0) {
      int at = static_cast<int>(random() % (count + 1));
      store.AddItem(text, at);
      model.insert(model.begin() + at, text);
    } else if (choice < 6) {
      store.AddItem(text);
      model.push_back(text);
    } else if (choice < 8) {
      int at = static_cast<int>(random() % count);
      store.RemoveItem(at);
      model.erase(model.begin() + at);
    } else {
      int at = static_cast<int>(random() % count);
      store.AddItem(text, at);
      store.RemoveItem(at + 1);
      model[at] = text;
    }
    ASSERT_EQ(store.ListCount(), static_cast<std::int32_t>(model.size()));
  }
  EXPECT_EQ(linesOf(store), model);
}

TEST(LineStore, ReplacingEveryLineFrontToBackKeepsCountAndOrder) {
  LineStore store;
  const int n = 200000;
  for (int i = 0; i < n; ++i) store.AddItem("LOD 0 " + std::to_string(i));
  for (int i = 0; i < n; ++i) {
    std::string replaced = "LOD 1 " + std::to_string(i);
    store.AddItem(replaced, i);
    store.RemoveItem(i + 1);
  }
  ASSERT_EQ(store.ListCount(), n);
  EXPECT_EQ(store.List(0), "LOD 1 0");
  EXPECT_EQ(store.List(n - 1), "LOD 1 " + std::to_string(n - 1));
}

}  // namespace
}  // namespace korvane
