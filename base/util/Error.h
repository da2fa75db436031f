//===- base/util/Error.h - Status codes of low-level operations -----------===//
//
// qoUtil::Error is the result of an operation that can fail for a reason the
// caller may want to tell apart (end of data, no memory, an I/O fault). The
// default value is Success; test with ok() or failed(). A plain value of one
// int, cheap to return.
//
// Example:
//   qoUtil::Error readBlock(Stream &s, void *to, std::size_t n) {
//     if (s.read(to, n) != n)
//       return s.error() ? qoUtil::Error::IOFailure : qoUtil::Error::EndOfData;
//     return qoUtil::Error::Success;
//   }
//   if (qoUtil::Error e = readBlock(s, buf, 16); e.failed())
//     report(e.message());
//
//===----------------------------------------------------------------------===//
#ifndef QOUTIL_ERROR_H
#define QOUTIL_ERROR_H

namespace qoUtil {

class Error {
public:
  enum Code : int {
    Success = 0,
    Failure,
    EndOfData,
    OutOfMemory,
    InvalidArgument,
    NotFound,
    IOFailure,
  };

  constexpr Error() = default;
  constexpr Error(Code C) : Value(C) {}

  constexpr Code code() const { return Value; }
  constexpr bool ok() const { return Value == Success; }
  constexpr bool failed() const { return Value != Success; }
  // A short lower-case description, such as "end of data".
  constexpr const char *message() const {
    switch (Value) {
    case Success:
      return "success";
    case Failure:
      return "failure";
    case EndOfData:
      return "end of data";
    case OutOfMemory:
      return "out of memory";
    case InvalidArgument:
      return "invalid argument";
    case NotFound:
      return "not found";
    case IOFailure:
      return "input/output failure";
    }
    return "unknown error";
  }

  friend constexpr bool operator==(Error A, Error B) {
    return A.Value == B.Value;
  }

private:
  Code Value = Success;
};

} // namespace qoUtil

#endif // QOUTIL_ERROR_H
