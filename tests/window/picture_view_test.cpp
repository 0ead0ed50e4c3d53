// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/picture_view.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QPaintEvent>
#include <algorithm>

#include "tests/storm/twin.h"
#include "tests/support/temp_folder.h"
#include "tests/window/live_window.h"
#include "tests/window/studio.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kAckMs = 100;
constexpr int kOne = 0;  ///< rows of two windows that are on
constexpr int kOther = 1;

/// Remembers which part of a widget is painted.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
  QRegion Take() { return std::exchange(painted_, {}); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted_ += static_cast<QPaintEvent*>(event)->region();
    return QObject::eventFilter(watched, event);
  }

 private:
  QRegion painted_;
};

class PictureViewTest : public testing::Test {
 protected:
  PictureViewTest() {
    desk_.Show(2);
    for (const int row : form_.chOnOff.Indices()) form_.chOnOff(row).SetValue(row == kOne || row == kOther);
    desk_.Key(Qt::Key_F9);
    LiveWindow::Settle();
    const MoveLimits limits = *Rules().LimitsOf(kOne);
    Rules().Move(kOne, 4, limits.top + 2 * limits.step);
    Rules().Move(kOther, 6, limits.top + 5 * limits.step);
    step_ = limits.step;
    LiveWindow::Settle();
    studio_.tool.commands.MessageSent.Connect([this](const SentMessage& message) {
      if (!message.meaning.starts_with("Window")) return;
      const bool light = message.meaning.find(" highlighted: ") != std::string::npos;
      (light ? lights_ : sent_).push_back(message.meaning);
    });
  }
  void TearDown() override {
    LiveWindow::Settle();
    EXPECT_THAT(desk_.Disagreements(), IsEmpty());
    EXPECT_THAT(DifferencesToTwin(studio_), IsEmpty());
    EXPECT_THAT(studio_.Boxes(), IsEmpty());
  }

  PictureRules& Rules() { return studio_.tool.pictureRules; }
  PictureView& View() { return *desk_.Window().findChild<PictureView*>(); }
  QPoint Middle(int row) { return View().RectOf(View().Seen(row)->place).center().toPoint(); }
  QPoint Steps(int columns, int rows) {
    return QPointF(View().Cell().width() * columns, View().Cell().height() * step_ * rows).toPoint();
  }
  /// Column, and character row below the first of all.
  std::pair<int, int> Place(int row) {
    return {form_.udHor(row).Value(), (form_.udVer(row).Value() - Rules().LimitsOf(row)->top) / step_};
  }
  std::string Name(int row) { return form_.lName(row).Caption(); }
  /// While the unit owes the answer to a tick.
  void InAWait(const std::function<void()>& deed) {
    desk_.Click(desk_.Widget("chDblSize(1)"));
    studio_.pump.At(studio_.pump.Now() + 5, deed);
    LiveWindow::Settle();
  }

  Studio studio_{kAckMs};
  FrmStart& form_ = studio_.form;
  LiveWindow desk_{studio_};
  int step_ = 1;
  std::vector<std::string> sent_;    ///< what windows have become
  std::vector<std::string> lights_;  ///< that one is lit, or is not any more
};

/// The hand is faster than the unit: the picture shows where the window is to be, and one message brings it
/// there.
TEST_F(PictureViewTest, ADropIsOneMessageHoweverLateTheUnitAnswers) {
  std::vector<std::uint8_t> seen;
  InAWait([&] {
    sent_.clear();
    const QPoint from = Middle(kOne);
    desk_.Press(View(), from);
    for (const int way : {1, 2, 3}) desk_.Hold(View(), from + Steps(way, way - 1));
    TurnQtsLoop();
    EXPECT_EQ(View().SelectedInWords().toStdString(),
              Name(kOne) + ": Vertical " + std::to_string(Rules().LimitsOf(kOne)->top + 4 * step_) +
                  ", Horizontal 7");
    desk_.Release(View(), from + Steps(3, 2));
    desk_.Key(Qt::Key_Right);
    TurnQtsLoop();
    EXPECT_EQ(Place(kOne), std::pair(4, 2)) << "the unit still owes an answer";
    EXPECT_TRUE(View().SelectedInWords().endsWith("Horizontal 8")) << "but the operator sees what he did";
    const QPoint ghost = from + Steps(4, 2);
    desk_.Press(View(), ghost);
    desk_.Hold(View(), ghost + Steps(8, 0));
    desk_.Release(View(), ghost + Steps(8, 0));
    TurnQtsLoop();
    seen = studio_.AsSeen();
  });
  EXPECT_EQ(Place(kOne), std::pair(16, 4));
  EXPECT_EQ(studio_.AsSeen(), seen) << "what would have been kept in the wait";
  const auto ofOne = [this](const std::string& meaning) {
    return meaning.find(Name(kOne)) != std::string::npos;
  };
  EXPECT_EQ(std::ranges::count_if(sent_, ofOne), 3) << "the two drops and the key";
}

TEST_F(PictureViewTest, AWindowStaysInsideItsLimits) {
  const MoveLimits limits = *Rules().LimitsOf(kOne);
  const int last = (limits.bottom - limits.top) / step_;
  for (const auto& [way, end] :
       {std::pair{QPoint(-100, -100), std::pair(0, 0)}, {QPoint(100, 100), std::pair(limits.right, last)}}) {
    const QPoint from = Middle(kOne);
    desk_.Press(View(), from);
    desk_.Hold(View(), from + Steps(way.x(), way.y()));
    desk_.Release(View(), from + Steps(way.x(), way.y()));
    LiveWindow::Settle();
    EXPECT_EQ(Place(kOne), end);
  }
  sent_.clear();
  for (const int key : {Qt::Key_Right, Qt::Key_Down}) desk_.Key(key);
  LiveWindow::Settle();
  EXPECT_THAT(sent_, IsEmpty()) << "it is in the corner already";
}

TEST_F(PictureViewTest, KeysAreForTheSelectedWindow) {
  desk_.Click(View(), Middle(kOther));
  for (const int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Left, Qt::Key_Left, Qt::Key_Up})
    desk_.Key(key);
  LiveWindow::Settle();
  EXPECT_EQ(Place(kOther), std::pair(5, 6));
  EXPECT_EQ(sent_.size(), 6U);
  sent_.clear();
  const QPoint from = Middle(kOther);
  desk_.Press(View(), from);
  desk_.Hold(View(), from + Steps(4, 4));
  desk_.Key(Qt::Key_Escape);
  desk_.Release(View(), from + Steps(4, 4));
  desk_.Click(View(), Steps(1, 0), 2);  // where no window is
  desk_.Key(Qt::Key_Delete);
  LiveWindow::Settle();
  EXPECT_THAT(sent_, IsEmpty());
  desk_.Key(Qt::Key_PageUp);
  desk_.Key(Qt::Key_Delete);
  LiveWindow::Settle();
  EXPECT_EQ(form_.chOnOff(kOther).Value(), 0);
  EXPECT_EQ(form_.chOnOff(kOne).Value(), 1);
}

/// Selecting a window in one place shows it in the other.
TEST_F(PictureViewTest, TableAndPictureSelectTogether) {
  desk_.Click(View(), Middle(kOther));
  LiveWindow::Settle();
  EXPECT_EQ(View().SelectedInWords().toStdString().find(Name(kOther) + ":"), 0U);
  PaintWatch row(*desk_.Widget("lName(0)").parentWidget()->parentWidget());
  desk_.Widget("udHor(0)").setFocus();
  LiveWindow::Settle();
  EXPECT_EQ(View().Selected(), kOne);
  EXPECT_FALSE(row.Take().isEmpty()) << "the row is marked";
}

TEST_F(PictureViewTest, ThePointerLightsAWindowAsOverItsName) {
  constexpr int kRestMs = 300;
  desk_.Move(View(), Middle(kOne));
  LiveWindow::Settle();
  EXPECT_THAT(lights_, IsEmpty()) << "it has only passed so far";
  studio_.pump.Pass(kRestMs);
  desk_.Move(View(), Steps(1, 0));
  LiveWindow::Settle();
  EXPECT_THAT(lights_,
              ElementsAre(testing::HasSubstr("' highlighted: "), testing::HasSubstr("' not highlighted: ")));
}

TEST_F(PictureViewTest, OnlyWhatChangesIsPainted) {
  PaintWatch watch(View());
  for (const bool up : {true, false}) {
    const QRectF before = View().RectOf(View().Seen(kOther)->place);
    form_.udHor(kOther).OperatorStep(up);
    LiveWindow::Settle();
    const QRegion painted = watch.Take();
    const QRectF both = before | View().RectOf(View().Seen(kOther)->place);
    EXPECT_TRUE(painted.contains(both.toAlignedRect().center()));
    EXPECT_TRUE(both.adjusted(-10, -10, 10, 10).contains(painted.boundingRect()));
  }
  form_.tWinMess.OperatorType("NOBODY SEES IT");
  LiveWindow::Settle();
  EXPECT_TRUE(watch.Take().isEmpty());
  desk_.Key(Qt::Key_F9);
  LiveWindow::Settle();
  EXPECT_FALSE(View().isVisible());
}

/// A background that cannot be read changes nothing; one that has gone since the last run is told, not asked
/// about.
TEST_F(PictureViewTest, ABackgroundIsKeptUntilAnotherCanBeRead) {
  const TempFolder folder;
  QImage still(40, 30, QImage::Format_RGB32);
  still.fill(Qt::red);
  const std::string good = folder.File("good.png");
  ASSERT_TRUE(still.save(QString::fromStdString(good)));
  const auto ground = [&] { return View().grab().toImage().pixelColor(View().rect().center()); };
  studio_.fileDialog.choices = {good, std::nullopt, folder.Write("bad.png", "no picture"),
                                folder.File("gone.png")};
  for (int i = 0; i < 4; ++i) {
    form_.mnuStill.OperatorClick();
    EXPECT_EQ(ground(), QColor(Qt::red));
  }
  EXPECT_THAT(studio_.Boxes(), ElementsAre(HasSubstr("Invalid picture"), HasSubstr("File not found")));
  EXPECT_EQ(studio_.settings.GetSetting("Background", ""), good);
  studio_.dialogs.shown.clear();
  form_.mnuNoStill.OperatorClick();
  EXPECT_NE(ground(), QColor(Qt::red));
  EXPECT_EQ(studio_.settings.GetSetting("Background", ""), "");
}

TEST_F(PictureViewTest, AStandardWithoutPictureSaysWhy) {
  form_.mnuInter.OperatorClick();
  auto& rows = studio_.vars.CharMaxPositions;
  std::erase_if(rows, [&](const CharMaxPosRec& row) { return row.VideoStandard == form_.comVS.Text(); });
  form_.Changed.Emit();
  form_.lName(kOne).SetToolTip("touched");
  LiveWindow::Settle();
  EXPECT_THAT(View().Plan().trouble, HasSubstr(form_.comVS.Text()));
  View().grab();
  desk_.Click(View(), View().rect().center());
  desk_.Key(Qt::Key_Right);
  LiveWindow::Settle();
  EXPECT_EQ(View().Selected(), kNoIndex);
}

}  // namespace
}  // namespace marlinset
