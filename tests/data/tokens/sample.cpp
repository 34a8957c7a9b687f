// A small sample: comments, strings, numbers, keywords and blocks.
#include <vector>
#define LIMIT 0x1F
/* a block comment
   over two lines */
namespace demo {

[[nodiscard]] int Count(const std::vector<int>& items) {
  int total = 0;  // running sum
  for (int i = 0; i < 1'000; ++i) {
    total += items[i] * 2.5e3;
  }
  const char c = 'x';
  const char* s = "a \"quoted\" string";
  auto raw = R"(raw \n text)";
  return total > 100 ? total : -1;
}

} // namespace demo
