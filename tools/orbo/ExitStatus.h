//===- tools/orbo/ExitStatus.h - The orbo program's exit statuses --------===//
//
// Every command of the program ends with one of these. When one run meets
// several kinds of failure (lint over many files), the largest value wins, so
// an I/O or usage failure is never hidden behind a data error.
//
// Example:
//   ExitStatus Status = ExitSuccess;
//   Status = worse(Status, ExitBadData);   // ExitBadData
//   Status = worse(Status, ExitFailure);   // ExitFailure
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TOOLS_ORBO_EXITSTATUS_H
#define ORBO_TOOLS_ORBO_EXITSTATUS_H

namespace orbo {

enum ExitStatus : int {
  ExitSuccess = 0,
  // The input was read but does not hold a valid property list, or it holds
  // one that the requested output form cannot express.
  ExitBadData = 1,
  // A usage error, or a file or stream that could not be read or written.
  ExitFailure = 2,
};

inline ExitStatus worse(ExitStatus A, ExitStatus B) { return A > B ? A : B; }

} // namespace orbo

#endif // ORBO_TOOLS_ORBO_EXITSTATUS_H
