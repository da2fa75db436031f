// Builds against the installed headers only: every public header through the
// umbrella, and a round trip through the JSON reader and writer.
#include <cstdio>
#include <orbo/Support.h>

int main() {
  qo::Reference<nyPLST::Item> Item;
  if (!nyPLST::convertFromJSON(
          Item, qoString::CString("{\"b\": [1, 2], \"a\": true}")))
    return 1;
  qoString::CString Text;
  nyPLST::convertToJSON(Text, Item);
  std::fputs(Text.c_str(), stdout);
  return nyPLST::asDictionary(Item) ? 0 : 1;
}
