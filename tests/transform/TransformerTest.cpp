#include "transform/Transformer.h"

#include "base/Reference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

using qoLinear::AffineMatrix;
using qoLinear::Line;
using qoLinear::Point;
using qoLinear::TransformOperation;
using qoLinear::Vector;

namespace {

// Expected matrices are built here from elementary 4x4 row-vector matrices
// ([x y z 1] * M), independently of AffineMatrix's own composition.
struct Mat4 {
  double E[4][4];
};

Mat4 identity4() {
  return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
}

Mat4 translation4(double X, double Y, double Z) {
  return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {X, Y, Z, 1}}};
}

Mat4 scaling4(double X, double Y, double Z) {
  return {{{X, 0, 0, 0}, {0, Y, 0, 0}, {0, 0, Z, 0}, {0, 0, 0, 1}}};
}

// About the z axis through the origin; +x turns towards +y.
Mat4 rotationZ4(double A) {
  const double C = std::cos(A), S = std::sin(A);
  return {{{C, S, 0, 0}, {-S, C, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
}

Mat4 operator*(const Mat4 &A, const Mat4 &B) {
  Mat4 Out{};
  for (int R = 0; R < 4; ++R)
    for (int C = 0; C < 4; ++C)
      for (int K = 0; K < 4; ++K)
        Out.E[R][C] += A.E[R][K] * B.E[K][C];
  return Out;
}

Point apply(const Point &P, const Mat4 &M) {
  double Out[3];
  for (int C = 0; C < 3; ++C)
    Out[C] = P.X * M.E[0][C] + P.Y * M.E[1][C] + P.Z * M.E[2][C] + M.E[3][C];
  return {Out[0], Out[1], Out[2]};
}

// Stored column by column, the 3x4 matrix reads as the 4x3 row-vector matrix
// row by row.
AffineMatrix toAffine(const Mat4 &M) {
  double Coefficients[12];
  for (int R = 0; R < 4; ++R)
    for (int C = 0; C < 3; ++C)
      Coefficients[3 * R + C] = M.E[R][C];
  return AffineMatrix(Coefficients);
}

void expectMatrix(const AffineMatrix &Actual, const Mat4 &Expected) {
  for (int R = 0; R < 4; ++R)
    for (int C = 0; C < 3; ++C)
      EXPECT_NEAR(Actual[3 * R + C], Expected.E[R][C], 1e-12)
          << "row " << R << ", column " << C;
}

void expectVector(const Vector &Actual, const Vector &Expected) {
  EXPECT_DOUBLE_EQ(Actual.X, Expected.X);
  EXPECT_DOUBLE_EQ(Actual.Y, Expected.Y);
  EXPECT_DOUBLE_EQ(Actual.Z, Expected.Z);
}

// The frame of every operation below: twice as large, a quarter turn about z,
// then moved to (1, 2, 3). Its inverse is the reverse chain.
const Mat4 Frame =
    scaling4(2, 2, 2) * rotationZ4(M_PI / 2) * translation4(1, 2, 3);
const Mat4 FrameInverse =
    translation4(-1, -2, -3) * rotationZ4(-M_PI / 2) * scaling4(0.5, 0.5, 0.5);

Mat4 framed(const Mat4 &M) { return FrameInverse * M * Frame; }

void expectXForm(const nySupport::Transformer &T, const Mat4 &Framed,
                 const Mat4 &Unframed) {
  AffineMatrix Out;
  T.getXForm(Out, false);
  expectMatrix(Out, Framed);
  T.getXForm(Out, true);
  expectMatrix(Out, Unframed);
}

void expectXFormDelta(const nySupport::Transformer &T, const Mat4 &Framed,
                      const Mat4 &Unframed) {
  AffineMatrix Out;
  T.getXFormDelta(Out, false);
  expectMatrix(Out, Framed);
  T.getXFormDelta(Out, true);
  expectMatrix(Out, Unframed);
}

class CountedTransformer : public nySupport::Transformer {
public:
  static inline int Live = 0;
  CountedTransformer() { ++Live; }
  ~CountedTransformer() override { --Live; }
};

// What a listener saw at each signal, read back while the signal ran.
struct Event {
  std::string Name;
  const nySupport::Transformer *Sender;
  TransformOperation Op;
  AffineMatrix Total;
};

class Recorder {
public:
  explicit Recorder(nySupport::Transformer &T) {
    listen(T.getSigStarted(), "started");
    listen(T.getSigModified(), "modified");
    listen(T.getSigFinished(), "finished");
  }

  std::vector<std::string> names() const {
    std::vector<std::string> Out;
    for (const Event &E : Events)
      Out.push_back(E.Name);
    return Out;
  }

  std::vector<Event> Events;

private:
  void listen(nySupport::Transformer::Signal &S, std::string Name) {
    S.addCallback([this, Name](nySupport::Transformer *T) {
      AffineMatrix Total;
      T->getXForm(Total, false);
      Events.push_back({Name, T, T->getCurrentOp(), Total});
    });
  }
};

class Transformer : public ::testing::Test {
protected:
  void TearDown() override {
    T.reset();
    EXPECT_EQ(CountedTransformer::Live, 0);
  }

  qo::Reference<nySupport::Transformer> T{new CountedTransformer};
  Recorder Log{*T};
};

} // namespace

TEST_F(Transformer, StartsIdleWithIdentityAndNoAxis) {
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::Identity);
  EXPECT_FALSE(T->getRotateAxis().valid());
  expectXForm(*T, identity4(), identity4());
  expectXFormDelta(*T, identity4(), identity4());
}

// Moves are in the caller's space: the frame must not touch them.
TEST_F(Transformer, TranslateIsNeverFramed) {
  T->startTranslate(toAffine(Frame));
  T->setTranslate({1, 2, 3});
  expectVector(T->getTranslateDelta(), {1, 2, 3});
  expectXForm(*T, translation4(1, 2, 3), translation4(1, 2, 3));
  expectXFormDelta(*T, translation4(1, 2, 3), translation4(1, 2, 3));

  T->setTranslate({2, 2, 3});
  expectVector(T->getTranslate(), {2, 2, 3});
  expectVector(T->getTranslateDelta(), {1, 0, 0});
  expectXForm(*T, translation4(2, 2, 3), translation4(2, 2, 3));
  expectXFormDelta(*T, translation4(1, 0, 0), translation4(1, 0, 0));

  T->finish();
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::Identity);
}

TEST_F(Transformer, RotateTurnsAboutTheOffOriginAxisUnframed) {
  const Line Axis(Point(1, 1, 0), Vector(0, 0, 2));
  const auto AboutAxis = [](double A) {
    return translation4(-1, -1, 0) * rotationZ4(A) * translation4(1, 1, 0);
  };
  T->startRotate(toAffine(Frame), Axis);
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::Rotate);
  T->setRotate(0.5);
  T->setRotate(0.75);

  Line Got;
  double Angle = 0;
  T->getRotate(Got, Angle);
  EXPECT_EQ(Got, Axis);
  EXPECT_EQ(Angle, 0.75);
  T->getRotateDelta(Got, Angle);
  EXPECT_EQ(Got, Axis);
  EXPECT_DOUBLE_EQ(Angle, 0.25);
  EXPECT_EQ(T->getRotateAxis(), Axis);
  expectXForm(*T, AboutAxis(0.75), AboutAxis(0.75));
  expectXFormDelta(*T, AboutAxis(0.25), AboutAxis(0.25));
  T->finish();
}

TEST_F(Transformer, ScaleIsAboutTheCentreInsideTheFrame) {
  const Point WorldCentre(3, 4, 5);
  const Point C = apply(WorldCentre, FrameInverse);
  const auto Scaled = [&](double X, double Y, double Z) {
    return framed(translation4(-C.X, -C.Y, -C.Z) * scaling4(X, Y, Z) *
                  translation4(C.X, C.Y, C.Z));
  };
  T->startScale(toAffine(Frame), WorldCentre);
  T->setScale({2, 2, 2});
  expectVector(T->getScaleDelta(), {2, 2, 2});
  expectXForm(*T, Scaled(2, 2, 2), Scaled(2, 2, 2));
  expectXFormDelta(*T, Scaled(2, 2, 2), Scaled(2, 2, 2));

  T->setScale({2, 3, 3});
  expectVector(T->getScaleDelta(), {1, 1.5, 1.5});
  expectXForm(*T, Scaled(2, 3, 3), Scaled(2, 3, 3));
  expectXFormDelta(*T, Scaled(1, 1.5, 1.5), Scaled(1, 1.5, 1.5));

  AffineMatrix Total;
  T->getXForm(Total, false);
  const Point Fixed = WorldCentre * Total;
  EXPECT_NEAR(distance(Fixed, WorldCentre), 0, 1e-12);
  T->finish();
}

// The step is the new total followed by the previous total undone: with
// non-commuting totals this pins the composition order.
TEST_F(Transformer, FreeTransformIsFramedUnlessAskedNotTo) {
  const Mat4 First = translation4(1, 0, 0) * rotationZ4(M_PI / 2);
  const Mat4 FirstInverse = rotationZ4(-M_PI / 2) * translation4(-1, 0, 0);
  const Mat4 Second = scaling4(2, 1, 1) * translation4(0, 3, 0);
  T->startXForm(toAffine(Frame));
  T->setXForm(toAffine(First));
  expectXForm(*T, framed(First), First);
  expectXFormDelta(*T, framed(First), First);

  T->setXForm(toAffine(Second));
  AffineMatrix Out;
  T->getXForm(Out, true);
  EXPECT_EQ(Out, toAffine(Second));
  expectXForm(*T, framed(Second), Second);
  expectXFormDelta(*T, framed(Second * FirstInverse), Second * FirstInverse);
  T->finish();
}

TEST_F(Transformer, ComputeScaleMatchesHandComputedMatrix) {
  // The centre (3, 4, 5) is (1, -1, 1) in the frame; scaling about it by
  // (2, 3, 4) leaves the axes scaled and moves the origin by c - s * c.
  T->startScale(toAffine(Frame), Point(3, 4, 5));
  AffineMatrix Out;
  T->computeScale({2, 3, 4}, Out);
  const double Expected[12] = {2, 0, 0, 0, 3, 0, 0, 0, 4, -1, 2, -3};
  for (int I = 0; I < 12; ++I)
    EXPECT_NEAR(Out[I], Expected[I], 1e-12) << "coefficient " << I;
}

TEST_F(Transformer, NonProportionalScaleSticksUntilNextStart) {
  T->startScale(AffineMatrix(), Point());
  T->setScale({2, 2, 2});
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::Scale);
  T->setScale({2, 3, 3});
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::NonPScale);
  T->setScale({3, 3, 3});
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::NonPScale);
  expectVector(T->getScaleDelta(), {1.5, 1, 1});

  T->startScale(AffineMatrix(), Point());
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::Scale);
  T->setScale({4, 4, 4});
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::Scale);
}

// One interaction of each kind, in a frame that would show up if it were
// applied where it must not be: how to start it and how to set a value.
struct Interaction {
  const char *Name;
  TransformOperation Op;
  std::function<void(nySupport::Transformer &)> Start;
  std::function<void(nySupport::Transformer &, double)> Set;
};

const std::vector<Interaction> &interactions() {
  static const std::vector<Interaction> All = {
      {"translate", TransformOperation::Translate,
       [](nySupport::Transformer &T) { T.startTranslate(toAffine(Frame)); },
       [](nySupport::Transformer &T, double V) {
         T.setTranslate({V, 0, 0});
       }},
      {"rotate", TransformOperation::Rotate,
       [](nySupport::Transformer &T) {
         T.startRotate(toAffine(Frame), Line(Point(), Vector(0, 0, 1)));
       },
       [](nySupport::Transformer &T, double V) { T.setRotate(V); }},
      {"scale", TransformOperation::Scale,
       [](nySupport::Transformer &T) {
         T.startScale(toAffine(Frame), Point(3, 4, 5));
       },
       [](nySupport::Transformer &T, double V) {
         T.setScale({V, V, V});
       }},
      {"xform", TransformOperation::General,
       [](nySupport::Transformer &T) { T.startXForm(toAffine(Frame)); },
       [](nySupport::Transformer &T, double V) {
         T.setXForm(toAffine(translation4(0, V, 0)));
       }},
  };
  return All;
}

TEST_F(Transformer, SignalsFollowTheInteractionAndFinishSeesTheValues) {
  for (const Interaction &I : interactions()) {
    SCOPED_TRACE(I.Name);
    Log.Events.clear();
    I.Start(*T);
    I.Set(*T, 1);
    I.Set(*T, 2);
    AffineMatrix Last;
    T->getXForm(Last, false);
    T->finish();

    EXPECT_EQ(Log.names(), (std::vector<std::string>{"started", "modified",
                                                     "modified", "finished"}));
    for (const Event &E : Log.Events) {
      EXPECT_EQ(E.Sender, T.get());
      EXPECT_EQ(E.Op, I.Op);
    }
    EXPECT_EQ(Log.Events.back().Total, Last);
    EXPECT_EQ(T->getCurrentOp(), TransformOperation::Identity);
  }
}

TEST_F(Transformer, StartDuringAnOperationAbandonsItSilently) {
  T->startTranslate(AffineMatrix());
  T->setTranslate({1, 0, 0});
  T->startRotate(AffineMatrix(), Line(Point(), Vector(1, 0, 0)));
  EXPECT_EQ(Log.names(),
            (std::vector<std::string>{"started", "modified", "started"}));
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::Rotate);
}

// A start resets only its own operation's total, so the first step of any
// other kind must still be measured from the neutral value (0, 0, 1 here), not
// from what an earlier interaction left. Every step below is therefore 3.
TEST_F(Transformer, EveryStartMakesTheNextStepOfAnyKindStartFromNeutral) {
  struct Setter {
    const char *Name;
    std::function<void(nySupport::Transformer &, double)> Set;
    std::function<double(const nySupport::Transformer &)> Step;
  };
  const Setter Setters[] = {
      {"translate",
       [](nySupport::Transformer &T, double V) {
         T.setTranslate({V, 0, 0});
       },
       [](const nySupport::Transformer &T) { return T.getTranslateDelta().X; }},
      {"rotate", [](nySupport::Transformer &T, double V) { T.setRotate(V); },
       [](const nySupport::Transformer &T) {
         Line Axis;
         double Angle = 0;
         T.getRotateDelta(Axis, Angle);
         return Angle;
       }},
      {"scale",
       [](nySupport::Transformer &T, double V) {
         T.setScale({V, V, V});
       },
       [](const nySupport::Transformer &T) { return T.getScaleDelta().X; }},
  };
  for (const Interaction &I : interactions()) {
    for (const Setter &S : Setters) {
      SCOPED_TRACE(std::string(I.Name) + " then " + S.Name);
      I.Start(*T);
      S.Set(*T, 2);
      S.Set(*T, 5);
      T->finish();
      I.Start(*T);
      S.Set(*T, 3);
      EXPECT_DOUBLE_EQ(S.Step(*T), 3);
      T->finish();
    }
  }
}
