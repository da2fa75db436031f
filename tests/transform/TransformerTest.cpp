#include "transform/Transformer.h"

#include "base/Reference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace ny = nySupport;
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

// [A 0; t 1] is A then the move t, so its inverse is the move back then the
// inverse of A; the cyclic cofactors carry their signs.
Mat4 inverse(const Mat4 &M) {
  const auto Cofactor = [&A = M.E](int R, int C) {
    return A[(R + 1) % 3][(C + 1) % 3] * A[(R + 2) % 3][(C + 2) % 3] -
           A[(R + 1) % 3][(C + 2) % 3] * A[(R + 2) % 3][(C + 1) % 3];
  };
  const double Det = M.E[0][0] * Cofactor(0, 0) + M.E[0][1] * Cofactor(0, 1) +
                     M.E[0][2] * Cofactor(0, 2);
  Mat4 Linear = scaling4(1, 1, 1);
  for (int R = 0; R < 3; ++R)
    for (int C = 0; C < 3; ++C)
      Linear.E[C][R] = Cofactor(R, C) / Det;
  return translation4(-M.E[3][0], -M.E[3][1], -M.E[3][2]) * Linear;
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

void expectMatrix(const AffineMatrix &Actual, const Mat4 &Expected,
                  const char *What) {
  const AffineMatrix Wanted = toAffine(Expected);
  for (int I = 0; I < 12; ++I)
    EXPECT_NEAR(Actual[I], Wanted[I], 1e-12) << What << ", coefficient " << I;
}

// The frame of every operation below: twice as large, a quarter turn about z,
// then moved to (1, 2, 3); a frame applied where it must not be shows.
const Mat4 Frame =
    scaling4(2, 2, 2) * rotationZ4(M_PI / 2) * translation4(1, 2, 3);

Mat4 framed(const Mat4 &M) { return inverse(Frame) * M * Frame; }

// M about the point C rather than about the origin.
Mat4 about(const Point &C, const Mat4 &M) {
  return translation4(-C.X, -C.Y, -C.Z) * M * translation4(C.X, C.Y, C.Z);
}

const Point ScaleCentre(3, 4, 5);
const Point FrameCentre(1, -1, 1); // ScaleCentre in the frame's own space

class CountedTransformer : public ny::Transformer {
public:
  static inline int Live = 0;
  CountedTransformer() { ++Live; }
  ~CountedTransformer() override { --Live; }
};

// Each signal logs its name and the operation its listener sees, and keeps
// the total read back while it ran.
class Transformer : public ::testing::Test {
protected:
  Transformer() {
    listen(T->getSigStarted(), "started ");
    listen(T->getSigModified(), "modified ");
    listen(T->getSigFinished(), "finished ");
  }
  void TearDown() override {
    T.reset();
    EXPECT_EQ(CountedTransformer::Live, 0);
  }

  qo::Reference<ny::Transformer> T{new CountedTransformer};
  std::vector<std::string> Log;
  AffineMatrix Seen;

private:
  void listen(ny::Transformer::Signal &S, const std::string &Name) {
    S.addCallback([this, Name](ny::Transformer *Sender) {
      EXPECT_EQ(Sender, T.get());
      Sender->getXForm(Seen, false);
      Log.push_back(Name + toString(Sender->getCurrentOp()));
    });
  }
};

// One interaction of each kind: how to start it, how to set the value V, and
// the operation's own matrix for V, which is framed always (scale), never
// (translate, rotate) or unless the caller asks not (free transform).
enum class Framing { Never, Always, UnlessAsked };

struct Interaction {
  TransformOperation Op;
  Framing Framed;
  double First, Second;
  std::function<void(ny::Transformer &)> Start;
  std::function<void(ny::Transformer &, double)> Set;
  std::function<Mat4(double)> Own;
};

Mat4 freeForm(double V) {
  return scaling4(1 + V, 1, 1) * rotationZ4(V) * translation4(0, V, 0);
}

const std::vector<Interaction> &interactions() {
  static const std::vector<Interaction> All = {
      {TransformOperation::Translate, Framing::Never, 1, 3,
       [](ny::Transformer &T) { T.startTranslate(toAffine(Frame)); },
       [](ny::Transformer &T, double V) {
         T.setTranslate({V, 2 * V, -V});
       },
       [](double V) { return translation4(V, 2 * V, -V); }},
      {TransformOperation::Rotate, Framing::Never, 0.5, 0.75,
       [](ny::Transformer &T) {
         T.startRotate(toAffine(Frame), Line(Point(1, 1, 0), Vector(0, 0, 2)));
       },
       [](ny::Transformer &T, double V) { T.setRotate(V); },
       [](double V) { return about(Point(1, 1, 0), rotationZ4(V)); }},
      {TransformOperation::Scale, Framing::Always, 2, 3,
       [](ny::Transformer &T) { T.startScale(toAffine(Frame), ScaleCentre); },
       [](ny::Transformer &T, double V) {
         T.setScale({V, V, V});
       },
       [](double V) { return about(FrameCentre, scaling4(V, V, V)); }},
      // Totals that do not commute pin the order of the step's composition.
      {TransformOperation::General, Framing::UnlessAsked, 1, 2,
       [](ny::Transformer &T) { T.startXForm(toAffine(Frame)); },
       [](ny::Transformer &T, double V) { T.setXForm(toAffine(freeForm(V))); },
       freeForm},
  };
  return All;
}

// The total and, as the new total followed by the previous one undone, the
// step, both framed and unframed.
void expectMatrices(const ny::Transformer &T, const Interaction &I, double V,
                    const Mat4 &Previous, bool Unframed) {
  const bool Framed = I.Framed == Framing::Always ||
                      (I.Framed == Framing::UnlessAsked && !Unframed);
  const Mat4 Total = Framed ? framed(I.Own(V)) : I.Own(V);
  const Mat4 Before = Framed ? framed(Previous) : Previous;
  AffineMatrix Out;
  T.getXForm(Out, Unframed);
  expectMatrix(Out, Total, Unframed ? "unframed total" : "total");
  T.getXFormDelta(Out, Unframed);
  expectMatrix(Out, Total * inverse(Before),
               Unframed ? "unframed step" : "step");
}

} // namespace

// Each kind twice over: every start measures the first step from the neutral
// value again. finish() signals before going idle, so its listeners still see
// the operation and its total.
TEST_F(Transformer, EveryOperationGivesItsMatricesAndSignals) {
  // Idle gives the identity, here as the move by 0.
  expectMatrices(*T, interactions()[0], 0, translation4(0, 0, 0), false);
  for (int Round = 0; Round < 2; ++Round) {
    for (const Interaction &I : interactions()) {
      SCOPED_TRACE(toString(I.Op));
      Log.clear();
      I.Start(*T);
      EXPECT_EQ(T->getCurrentOp(), I.Op);
      I.Set(*T, I.First);
      for (const bool Unframed : {false, true})
        expectMatrices(*T, I, I.First, scaling4(1, 1, 1), Unframed);
      I.Set(*T, I.Second);
      for (const bool Unframed : {false, true})
        expectMatrices(*T, I, I.Second, I.Own(I.First), Unframed);
      AffineMatrix Last;
      T->getXForm(Last, false);
      T->finish();
      EXPECT_EQ(T->getCurrentOp(), TransformOperation::Identity);

      const std::string Op = toString(I.Op);
      EXPECT_EQ(Log,
                (std::vector<std::string>{"started " + Op, "modified " + Op,
                                          "modified " + Op, "finished " + Op}));
      EXPECT_EQ(Seen, Last);
    }
  }
}

TEST_F(Transformer, NonProportionalScaleSticksUntilNextStart) {
  T->startScale(AffineMatrix(), Point());
  T->setScale({2, 2, 2});
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::Scale);
  T->setScale({2, 3, 3});
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::NonPScale);
  T->setScale({3, 3, 3});
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::NonPScale);
  EXPECT_EQ(T->getScaleDelta(), Vector(1.5, 1, 1));
  T->startScale(AffineMatrix(), Point());
  T->setScale({4, 4, 4});
  EXPECT_EQ(T->getCurrentOp(), TransformOperation::Scale);
}

// Scaling about the centre by (2, 3, 4) leaves the axes scaled and moves the
// origin by c - s * c, c being the centre in the frame's own space.
TEST_F(Transformer, ComputeScaleMatchesHandComputedMatrix) {
  T->startScale(toAffine(Frame), ScaleCentre);
  AffineMatrix Out;
  T->computeScale({2, 3, 4}, Out);
  const double Expected[12] = {2, 0, 0, 0, 3, 0, 0, 0, 4, -1, 2, -3};
  for (int I = 0; I < 12; ++I)
    EXPECT_NEAR(Out[I], Expected[I], 1e-12) << "coefficient " << I;
}

// A start resets only its own operation's total, so the first step of another
// kind must still be measured from the neutral value, not from what an earlier
// interaction left: every step checked below is 3. A start during an
// operation abandons it silently.
TEST_F(Transformer, EveryStartMakesTheNextStepOfAnyKindStartFromNeutral) {
  Line Axis;
  double Angle = 0;
  for (const Interaction &I : interactions()) {
    SCOPED_TRACE(toString(I.Op));
    for (const double V : {5.0, 3.0}) {
      I.Start(*T);
      T->setTranslate({V, 0, 0});
    }
    EXPECT_EQ(T->getTranslateDelta().X, 3);
    for (const double V : {5.0, 3.0}) {
      I.Start(*T);
      T->setRotate(V);
    }
    T->getRotateDelta(Axis, Angle);
    EXPECT_EQ(Angle, 3);
    for (const double V : {5.0, 3.0}) {
      I.Start(*T);
      T->setScale({V, V, V});
    }
    EXPECT_EQ(T->getScaleDelta().X, 3);
  }
  EXPECT_EQ(Log.size(), 48u); // a start and a set each time, nothing else
}
