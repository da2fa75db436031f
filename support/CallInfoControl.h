//===- support/CallInfoControl.h - Scoped call-record suppression ---------===//
//
// nySupport::CallInfoControl hides a domain's current call record for a
// scope: after suppress(), the next context opened on the domain creates a
// record of its own (and its hooks run as for a new operation). The control
// releases the suppression when it goes away, unless release() was called
// already; release() itself always releases, suppressed or not, so calls to
// it must pair with suppress() calls made anywhere on the domain.
//
// Lifetime: the domain must outlive the control; contexts opened after
// suppress() must close before the release.
//
// Example:
//   nySupport::CallInfoControl control(domain);
//   control.suppress();
//   {
//     nySupport::Context context(&domain, nySupport::Context::NoTxn);
//     // nySupport::ci() is a fresh record here
//   }
//   // control's destructor restores the hidden record
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_CALLINFOCONTROL_H
#define NYSUPPORT_CALLINFOCONTROL_H

namespace nySupport {

class Domain;

class CallInfoControl {
public:
  explicit CallInfoControl(Domain &D) : TheDomain(D) {}
  CallInfoControl(const CallInfoControl &) = delete;
  CallInfoControl &operator=(const CallInfoControl &) = delete;
  ~CallInfoControl();

  void suppress();
  void release();
  // Asks the domain, so suppressions made elsewhere count too.
  bool isSuppressed() const;

private:
  Domain &TheDomain;
  bool Suppressed = false;
};

} // namespace nySupport

#endif // NYSUPPORT_CALLINFOCONTROL_H
