//===- transform/Transformer.h - State of one interactive transformation --===//
//
// nySupport::Transformer carries one interactive transformation (the drag of
// a move, rotate or scale manipulator, or a free transform) from its start to
// its end. The tool driving it calls one start... operation, any number of
// set... operations as the pointer moves, then finish(). Listeners hear of
// each step through three signals and read back either the total since the
// start or the step since the previous set..., as a matrix or as the
// operation's own parameters. The class only keeps and combines values; it
// applies nothing to any object.
//
// Frames. Each start... takes the frame of the operation. Translations and
// rotations are given in the caller's space and their matrices are never
// framed. Scale factors and free transforms are relative to the frame, so
// their matrices are conjugated by it (inverse(frame), then the operation,
// then frame) unless the caller asks for a free transform unframed.
//
// State. getCurrentOp() is Identity when idle and the kind of the running
// operation otherwise. A scale whose factors have once been unequal becomes
// NonPScale and stays so until the next start..., even if later factors are
// equal again. A start... during a running operation simply begins the new
// one; nothing is emitted for the abandoned one. Each start... makes the next
// set... measure its step from the neutral value (zero move, zero angle, unit
// factors, identity), whatever an earlier interaction left.
//
// Signals, in order over one interaction: getSigStarted() once,
// getSigModified() once per set..., getSigFinished() once. Each passes the
// Transformer. finish() emits before going idle, so its listeners still see
// the operation and its values.
//
// Lifetime: reference counted (hold it through qo::Reference); not copyable.
// One thread drives a Transformer.
//
// Example:
//   qo::Reference<nySupport::Transformer> t(new nySupport::Transformer);
//   t->getSigModified().addCallback([](nySupport::Transformer *T) {
//     qoLinear::AffineMatrix step;
//     T->getXFormDelta(step, false);
//     moveSelection(step);
//   });
//   t->startScale(gizmoFrame, pivot);
//   t->setScale(qoLinear::Vector(2, 2, 2));   // step: twice as large
//   t->setScale(qoLinear::Vector(2, 3, 3));   // step: 1, 1.5, 1.5; NonPScale
//   t->finish();
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_TRANSFORMER_H
#define NYSUPPORT_TRANSFORMER_H

#include "base/ReferenceCount.h"
#include "base/linear/AffineMatrix.h"
#include "base/linear/Line.h"
#include "base/linear/Point.h"
#include "base/linear/TransformOperation.h"
#include "base/linear/Vector.h"
#include "base/rtb/Signal.h"

namespace nySupport {

class Transformer : public qo::ReferenceCount {
public:
  using Signal = qoRTB::SignalArg<Transformer *>;

  Transformer();
  Transformer(const Transformer &) = delete;
  Transformer &operator=(const Transformer &) = delete;
  ~Transformer() override;

  Signal &getSigStarted() { return OnStarted; }
  Signal &getSigModified() { return OnModified; }
  Signal &getSigFinished() { return OnFinished; }

  void startTranslate(const qoLinear::AffineMatrix &Frame);
  // Axis is in the caller's space, like the angles given later.
  void startRotate(const qoLinear::AffineMatrix &Frame,
                   const qoLinear::Line &Axis);
  // Center is in the caller's space; it is kept in the frame's own space.
  void startScale(const qoLinear::AffineMatrix &Frame,
                  const qoLinear::Point &Center);
  void startXForm(const qoLinear::AffineMatrix &Frame);

  // The total since the start; each emits getSigModified(). They do not check
  // that the matching start... was called.
  void setTranslate(const qoLinear::Vector &V);
  // Radians about the axis given to startRotate.
  void setRotate(double Radians);
  // Per-axis factors in the frame; unequal factors turn the operation into
  // NonPScale for the rest of the interaction.
  void setScale(const qoLinear::Vector &Factors);
  // In the frame.
  void setXForm(const qoLinear::AffineMatrix &M);

  // Emits getSigFinished(), then goes idle.
  void finish();

  qoLinear::TransformOperation getCurrentOp() const { return CurrentOp; }

  qoLinear::Vector getTranslate() const { return Translate; }
  qoLinear::Vector getTranslateDelta() const {
    return Translate - PreviousTranslate;
  }
  qoLinear::Line getRotateAxis() const { return RotateAxis; }
  void getRotate(qoLinear::Line &AxisOut, double &AngleOut) const;
  void getRotateDelta(qoLinear::Line &AxisOut, double &AngleOut) const;
  // Per-axis quotient of the last factors by the ones before; a zero
  // previous factor gives an infinite or undefined component.
  qoLinear::Vector getScaleDelta() const;

  // The total since the start as a matrix. Unframed only affects free
  // transforms (see the file comment); idle gives the identity.
  void getXForm(qoLinear::AffineMatrix &Out, bool Unframed) const;
  // The step since the previous set... as a matrix, framed as getXForm. For
  // a free transform the step is the new total followed by the previous
  // total undone: xform * inverse(previous) in qoLinear's order.
  void getXFormDelta(qoLinear::AffineMatrix &Out, bool Unframed) const;

  // Scaling by Factors about the scale centre, in the frame's space.
  void computeScale(const qoLinear::Vector &Factors,
                    qoLinear::AffineMatrix &Out) const;

private:
  void begin(qoLinear::TransformOperation Op,
             const qoLinear::AffineMatrix &Frame);
  // Out = inverse(StartMatrix), then M, then StartMatrix.
  void frame(const qoLinear::AffineMatrix &M,
             qoLinear::AffineMatrix &Out) const;
  // Consumes FirstSet: true when this set... is the first of its interaction.
  bool takeFirstSet();

  Signal OnStarted;
  Signal OnModified;
  Signal OnFinished;
  qoLinear::TransformOperation CurrentOp =
      qoLinear::TransformOperation::Identity;
  bool FirstSet = false;
  qoLinear::Line RotateAxis;
  qoLinear::Point ScaleCenter;
  qoLinear::Vector PreviousTranslate;
  qoLinear::Vector Translate;
  double PreviousAngle = 0;
  double Angle = 0;
  qoLinear::Vector PreviousScale{1, 1, 1};
  qoLinear::Vector Scale{1, 1, 1};
  qoLinear::AffineMatrix StartMatrix;
  qoLinear::AffineMatrix PreviousXForm;
  qoLinear::AffineMatrix XForm;
};

} // namespace nySupport

#endif // NYSUPPORT_TRANSFORMER_H
