//===- tests/support/PropertyProbe.h - Watch and describe properties ------===//
//
// PropertyLog records every announcement of the properties it watches as
// "name phase" lines (Pre, Mod, Post, txn), so a test compares a whole
// sequence at once. describe() renders everything observable about a set of
// properties (value, group, stores and twin link) in one string, so a round
// trip is checked by comparing two strings. Counted items and properties let
// a test prove that nothing outlives teardown.
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TESTS_SUPPORT_PROPERTYPROBE_H
#define ORBO_TESTS_SUPPORT_PROPERTYPROBE_H

#include "plst/Item.h"
#include "support/PropertyGroupIterator.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orbotest {

using nySupport::Property;
using PropertyRef = qo::Reference<Property>;

// A Double that counts live instances.
struct CountedDouble : nyPLST::Double {
  explicit CountedDouble(double V) : Double(V) { ++Live; }
  ~CountedDouble() override { --Live; }
  static inline int Live = 0;
};

inline qo::Reference<const nyPLST::Item> num(double V) {
  return qo::make<CountedDouble>(V);
}

inline std::string text(const qo::Reference<const nyPLST::Item> &I) {
  if (!I)
    return "-";
  const auto *D = dynamic_cast<const nyPLST::Double *>(I.get());
  return D ? std::to_string(static_cast<long long>(D->value())) : "?";
}

class PropertyLog {
public:
  ~PropertyLog() {
    for (const qo::Reference<qoRTB::Connection> &C : Connections)
      C->disconnect();
  }
  void watch(const PropertyRef &P) {
    static const char *Phase[] = {"Pre", "Mod", "Post", "Full"};
    Connections.push_back(P->getSigModified().addCallback(
        [this](Property::ConstRef Q, nySupport::PropertyModType T) {
          Lines.push_back(std::string(Q->name().c_str()) + " " + Phase[T]);
        }));
    if (Property::TxnModifiedSignal *S = P->getSigTxnModified())
      Connections.push_back(S->addCallback([this](Property::ConstRef Q) {
        Lines.push_back(std::string(Q->name().c_str()) + " txn");
      }));
  }
  std::vector<std::string> take() { return std::exchange(Lines, {}); }
  std::vector<std::string> Lines;

private:
  std::vector<qo::Reference<qoRTB::Connection>> Connections;
};

// Counts live properties: each tracked property's signal holds a token that
// goes when the property (and with it the signal) is destroyed.
struct PropertyCounter {
  void track(const PropertyRef &P) {
    P->getSigModified().addCallback(
        [T = Token](Property::ConstRef, nySupport::PropertyModType) {});
  }
  long live() const { return Token.use_count() - 1; }
  std::shared_ptr<int> Token = std::make_shared<int>();
};

// "name=value [txd members | untxd members]"; "-" for a missing store. The
// walk takes no references, so it never disturbs what undo revived.
inline std::string describe(const std::vector<PropertyRef> &Properties) {
  std::string Out;
  for (const PropertyRef &P : Properties) {
    Out += std::string(P->name().c_str()) + "=" + text(P->get()) + " [";
    nySupport::PropertyGroupIterator It(P, false);
    Out += P->txdStore() ? "" : "- ";
    for (; It.index1Valid(); It.advance())
      Out += std::string(It.current()->name().c_str()) + " ";
    Out += P->unTxdStore() ? "|" : "| -";
    for (; It.index2Valid(); It.advance())
      Out += " " + std::string(It.current()->name().c_str());
    Out += "] ";
  }
  return Out;
}

} // namespace orbotest

#endif // ORBO_TESTS_SUPPORT_PROPERTYPROBE_H
