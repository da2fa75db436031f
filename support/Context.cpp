#include "support/Context.h"

#include "support/Domain.h"

#include <cassert>
#include <utility>

namespace nySupport {

namespace {

struct ModeEntry {
  Context::Mode Value;
  qoString::CString Name;
  std::uint32_t TxnType;
};

// Indexed by mode value. Made on first use so that contexts opened while other
// libraries initialise find it ready.
const ModeEntry *modeTable() {
  static const ModeEntry Table[Context::ModeCount] = {
      {Context::InteractionStart, "InteractionStart", 0},
      {Context::InteractionPerform, "InteractionPerform", 0},
      {Context::InteractionEnd, "InteractionEnd", 0},
      {Context::Momentary, "Momentary", 0},
      {Context::Transient, "Transient", 1},
      {Context::Const, "Const", 3},
      {Context::ConstWithRedraw, "ConstWithRedraw", 3},
      {Context::NoTxn, "NoTxn", 2},
      {Context::Undecided, "Undecided", 4},
      {Context::AppOnly, "AppOnly", 2},
      {Context::Bootstrap, "Bootstrap", 2},
      {Context::Bare, "Bare", 2},
  };
  return Table;
}

// Runs the functions in order, including any that they add while running.
// Each batch is moved out first, so that a function adding another does not
// move the function object being called. A throw escapes the destructor that
// called this, which ends the process: closing cannot report a failure.
void runAll(qo::vector<Context::Function> &Functions, Domain *D) {
  while (!Functions.empty()) {
    const qo::vector<Context::Function> Batch = std::move(Functions);
    Functions.clear();
    for (const Context::Function &F : Batch)
      F(D);
  }
}

} // namespace

std::uint32_t mapTransactionType(Context::Mode M) {
  if (M >= Context::ModeCount)
    return 4;
  return modeTable()[M].TxnType;
}

Context::Context(Domain *D, Mode M)
    : TheMode(M), TxnType(mapTransactionType(M)), TheDomain(D) {
  assert(D && "context opened on no domain");
  D->beginContext(*this);
}

Context::~Context() {
  runAll(EndFunctions, TheDomain);
  TheDomain->endContext(*this);
  runAll(PostFunctions, TheDomain);
  TheDomain = nullptr;
}

void Context::addEndFunction(Function F) const {
  EndFunctions.push_back(std::move(F));
}

void Context::addPostFunction(Function F) const {
  PostFunctions.push_back(std::move(F));
}

const qoString::CString &Context::modeToString(Mode M) {
  assert(M < ModeCount && "not a context mode");
  return modeTable()[M].Name;
}

bool Context::modeFromString(Mode &Out, const qoString::CString &S) {
  const ModeEntry *Table = modeTable();
  for (std::uint32_t I = 0; I < ModeCount; ++I) {
    if (Table[I].Name == S) {
      Out = Table[I].Value;
      return true;
    }
  }
  return false;
}

} // namespace nySupport
