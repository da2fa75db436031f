//===- transform/Transformer.cpp - State of one interactive transformation ===//
//
// Each operation keeps its total since the start and the total at the
// set... before (Translate and PreviousTranslate, Angle and PreviousAngle,
// Scale and PreviousScale, XForm and PreviousXForm); the step is derived from
// the pair on demand. FirstSet, raised by every start..., makes the first
// set... of an interaction take the neutral value as its "before", so values
// left over from an earlier interaction never leak into a step.
//
// Matrices are composed only through qoLinear's own operations, in qoLinear's
// row-vector order ("A *= B" is A, then B), so that callers combining the
// results with their own qoLinear matrices get the same conventions back.
//
//===----------------------------------------------------------------------===//
#include "transform/Transformer.h"

namespace nySupport {

using qoLinear::AffineMatrix;
using qoLinear::TransformOperation;
using qoLinear::Vector;

Transformer::Transformer() {
  // The rotation axis means nothing until a rotation starts.
  RotateAxis.clear();
}

Transformer::~Transformer() = default;

void Transformer::begin(TransformOperation Op, const AffineMatrix &Frame) {
  CurrentOp = Op;
  StartMatrix = Frame;
}

bool Transformer::takeFirstSet() {
  const bool First = FirstSet;
  FirstSet = false;
  return First;
}

void Transformer::startTranslate(const AffineMatrix &Frame) {
  begin(TransformOperation::Translate, Frame);
  Translate = Vector(0, 0, 0);
  FirstSet = true;
  OnStarted.emit(this);
}

void Transformer::startRotate(const AffineMatrix &Frame,
                              const qoLinear::Line &Axis) {
  begin(TransformOperation::Rotate, Frame);
  RotateAxis = Axis;
  Angle = 0;
  FirstSet = true;
  OnStarted.emit(this);
}

void Transformer::startScale(const AffineMatrix &Frame,
                             const qoLinear::Point &Center) {
  begin(TransformOperation::Scale, Frame);
  ScaleCenter = Center * Frame.inverse();
  Scale = Vector(1, 1, 1);
  FirstSet = true;
  OnStarted.emit(this);
}

void Transformer::startXForm(const AffineMatrix &Frame) {
  begin(TransformOperation::General, Frame);
  XForm = AffineMatrix::identity();
  FirstSet = true;
  OnStarted.emit(this);
}

void Transformer::setTranslate(const Vector &V) {
  PreviousTranslate = takeFirstSet() ? Vector(0, 0, 0) : Translate;
  Translate = V;
  OnModified.emit(this);
}

void Transformer::setRotate(double Radians) {
  PreviousAngle = takeFirstSet() ? 0 : Angle;
  Angle = Radians;
  OnModified.emit(this);
}

void Transformer::setScale(const Vector &Factors) {
  PreviousScale = takeFirstSet() ? Vector(1, 1, 1) : Scale;
  Scale = Factors;
  // Deliberately one-way: tools that picked a non-proportional handling
  // for this drag must not see it flip back when the factors happen to meet.
  if (Factors.X != Factors.Y || Factors.Y != Factors.Z)
    CurrentOp = TransformOperation::NonPScale;
  OnModified.emit(this);
}

void Transformer::setXForm(const AffineMatrix &M) {
  PreviousXForm = takeFirstSet() ? AffineMatrix::identity() : XForm;
  XForm = M;
  OnModified.emit(this);
}

void Transformer::finish() {
  OnFinished.emit(this);
  CurrentOp = TransformOperation::Identity;
}

void Transformer::getRotate(qoLinear::Line &AxisOut, double &AngleOut) const {
  AxisOut = RotateAxis;
  AngleOut = Angle;
}

void Transformer::getRotateDelta(qoLinear::Line &AxisOut,
                                 double &AngleOut) const {
  AxisOut = RotateAxis;
  AngleOut = Angle - PreviousAngle;
}

Vector Transformer::getScaleDelta() const {
  return qoLinear::divide(Scale, PreviousScale);
}

void Transformer::computeScale(const Vector &Factors, AffineMatrix &Out) const {
  const Vector Center = ScaleCenter.toVector();
  Out = AffineMatrix::identity();
  Out *= AffineMatrix::identity().translate(-Center);
  Out *= AffineMatrix::identity().scale(Factors.X, Factors.Y, Factors.Z);
  Out *= AffineMatrix::identity().translate(Center);
}

void Transformer::frame(const AffineMatrix &M, AffineMatrix &Out) const {
  Out = StartMatrix.inverse();
  Out *= M;
  Out *= StartMatrix;
}

void Transformer::getXForm(AffineMatrix &Out, bool Unframed) const {
  AffineMatrix M;
  switch (CurrentOp) {
  case TransformOperation::Translate:
    Out = AffineMatrix::identity().translate(Translate);
    return;
  case TransformOperation::Rotate:
    Out = AffineMatrix::identity().rotate(Angle, RotateAxis);
    return;
  case TransformOperation::Scale:
  case TransformOperation::NonPScale:
    computeScale(Scale, M);
    break;
  case TransformOperation::General:
    if (Unframed) {
      Out = XForm;
      return;
    }
    M = XForm;
    break;
  case TransformOperation::Identity:
    Out = AffineMatrix::identity();
    return;
  }
  frame(M, Out);
}

void Transformer::getXFormDelta(AffineMatrix &Out, bool Unframed) const {
  AffineMatrix M;
  switch (CurrentOp) {
  case TransformOperation::Translate:
    Out = AffineMatrix::identity().translate(getTranslateDelta());
    return;
  case TransformOperation::Rotate:
    Out = AffineMatrix::identity().rotate(Angle - PreviousAngle, RotateAxis);
    return;
  case TransformOperation::Scale:
  case TransformOperation::NonPScale:
    computeScale(getScaleDelta(), M);
    break;
  case TransformOperation::General:
    // The new total first, then the previous total undone.
    M = PreviousXForm.inverse();
    M.preMult(XForm);
    if (Unframed) {
      Out = M;
      return;
    }
    break;
  case TransformOperation::Identity:
    Out = AffineMatrix::identity();
    return;
  }
  frame(M, Out);
}

} // namespace nySupport
