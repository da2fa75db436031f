//===- tests/support/RecordingDomain.h - A domain that logs its hooks -----===//
//
// A concrete nySupport::Domain for tests: every hook and signal appends a line
// to Log, so a test compares the whole sequence of events at once. A hook can
// be told to throw, to exercise the failure paths of opening a context.
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TESTS_SUPPORT_RECORDINGDOMAIN_H
#define ORBO_TESTS_SUPPORT_RECORDINGDOMAIN_H

#include "support/CallInfo.h"
#include "support/Context.h"
#include "support/Domain.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orbotest {

class RecordingDomain : public nySupport::Domain {
public:
  explicit RecordingDomain(nySupport::Domain *Primary = nullptr)
      : Domain(Primary) {
    getSigContextStackEmpty().addCallback([this] { Log.push_back("empty"); });
  }

  // The mode's name, or its number past the named modes.
  static std::string name(const nySupport::Context &C) {
    if (C.mode() >= nySupport::Context::ModeCount)
      return std::to_string(C.mode());
    return nySupport::Context::modeToString(C.mode()).c_str();
  }

  void onCustom(Domain *) override { Log.push_back("custom"); }
  void onContextBegin(Domain *D, const nySupport::Context &C) override {
    note(D, "begin " + name(C));
    if (ThrowOnContextBegin)
      throw std::runtime_error("context refused");
  }
  void onContextEnd(Domain *D, const nySupport::Context &C) override {
    note(D, "end " + name(C));
  }
  void onCallInfoBegin(Domain *D, nySupport::CallInfo *Info,
                       bool AppOnly) override {
    note(D, AppOnly ? "record begin appOnly" : "record begin");
    if (ThrowOnCallInfoBegin)
      throw std::runtime_error("record refused");
    Records.push_back(Info);
  }
  void onCallInfoEnd(Domain *D, nySupport::CallInfo *Info) override {
    note(D, Info == Records.back() ? "record end" : "record end (?)");
    Records.pop_back();
  }

  // Takes the log, leaving it empty.
  std::vector<std::string> take() { return std::exchange(Log, {}); }

  std::vector<std::string> Log;
  // Records whose begin hook ran and whose end hook has not, innermost last.
  std::vector<nySupport::CallInfo *> Records;
  bool ThrowOnContextBegin = false;
  bool ThrowOnCallInfoBegin = false;

private:
  void note(Domain *D, const std::string &Event) {
    Log.push_back(D == this ? Event : Event + " (another domain)");
  }
};

} // namespace orbotest

#endif // ORBO_TESTS_SUPPORT_RECORDINGDOMAIN_H
