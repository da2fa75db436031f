//===- support/Context.h - Scoped operation on a domain -------------------===//
//
// nySupport::Context is one operation on a domain's data. Constructing it
// opens it on the domain; destroying it closes it. Contexts live on the stack
// and nest strictly. The mode says what kind of operation it is, and the
// transaction type handed to the transaction framework follows from the mode.
//
// Closing runs, in this order: the end functions (in order of registration),
// the domain's close, then the post functions. Both kinds of function may be
// added through a const reference, so code that was only handed the context
// can schedule work. An exception from any of them ends the process:
// destruction cannot report it.
//
// Example:
//   {
//     nySupport::Context context(&domain, nySupport::Context::Momentary);
//     context.addPostFunction([](nySupport::Domain *d) { redraw(d); });
//     property->set(item);
//   } // end functions, domain close, then redraw
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_CONTEXT_H
#define NYSUPPORT_CONTEXT_H

#include "base/Containers.h"
#include "base/string/CString.h"

#include <cstdint>
#include <functional>

namespace nySupport {

class Domain;

class Context {
public:
  // The values are fixed: they are stored and exchanged as numbers.
  enum Mode : std::uint32_t {
    InteractionStart = 0,
    InteractionPerform = 1,
    InteractionEnd = 2,
    Momentary = 3,
    Transient = 4,
    Const = 5,
    ConstWithRedraw = 6,
    NoTxn = 7,
    Undecided = 8,
    AppOnly = 9,
    Bootstrap = 10,
    Bare = 11,
  };
  static constexpr std::uint32_t ModeCount = 12;

  using Function = std::function<void(Domain *)>;

  // Opens the context on D. If a hook of the domain throws, the exception
  // passes on and the context was never open: a call record that the opening
  // began is ended (onCallInfoEnd) and deleted.
  Context(Domain *D, Mode M);
  Context(const Context &) = delete;
  Context &operator=(const Context &) = delete;
  ~Context();

  // The domain the context is open on; null once it has closed.
  Domain *domain() const { return TheDomain; }
  Mode mode() const { return TheMode; }
  std::uint32_t transactionType() const { return TxnType; }
  // "Const" and "ConstWithRedraw".
  bool constMode() const { return TheMode - Const < 2u; }
  // The three interaction phases.
  bool interactiveMode() const { return TheMode < Momentary; }

  // Runs F with the domain before the domain closes the context.
  void addEndFunction(Function F) const;
  // Runs F with the domain after the domain has closed the context.
  void addPostFunction(Function F) const;

  // The fixed name of M; M must be one of the twelve modes.
  static const qoString::CString &modeToString(Mode M);
  // Stores the mode named S in Out and returns true; false, with Out
  // untouched, when S names none of them.
  static bool modeFromString(Mode &Out, const qoString::CString &S);

private:
  const Mode TheMode;
  const std::uint32_t TxnType;
  Domain *TheDomain;
  mutable qo::vector<Function> EndFunctions;
  mutable qo::vector<Function> PostFunctions;
};

// The transaction type under which changes made in a context of mode M are
// recorded: 0 for the interaction phases and "Momentary", 1 for "Transient",
// 3 for the two const modes, 2 for "NoTxn", "AppOnly", "Bootstrap" and
// "Bare", and 4 for "Undecided" and every value past the twelve modes.
std::uint32_t mapTransactionType(Context::Mode M);

} // namespace nySupport

#endif // NYSUPPORT_CONTEXT_H
