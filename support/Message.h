//===- support/Message.h - Base of every broadcast message ----------------===//
//
// nySupport::Message is the polymorphic base of the messages the Broadcaster
// delivers. A message carries whatever fields its type declares; the sender
// builds it (normally on its own stack) and hands it over by reference.
// Listeners get it only for the duration of their call and must not keep it.
//
// Example:
//   struct DocumentSavedMsg : nySupport::Message {
//     qoString::CString path;
//   };
//   DocumentSavedMsg msg;
//   msg.path = "/tmp/a.doc";
//   broadcaster->broadcast(msg);   // DocumentSavedMsg listeners only
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_MESSAGE_H
#define NYSUPPORT_MESSAGE_H

namespace nySupport {

class Message {
public:
  Message() = default;
  Message(const Message &) = default;
  Message &operator=(const Message &) = default;
  virtual ~Message() = default;
};

} // namespace nySupport

#endif // NYSUPPORT_MESSAGE_H
