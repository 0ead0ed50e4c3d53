// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/qt/picture_file.h"

#include <gmock/gmock.h>

#include <QImage>
#include <filesystem>

#include "base/runtime_error.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

constexpr QRgb kGround = 0xFF3C3C3C;
constexpr QRgb kWhiteDot = 0xFFFFFFFF;
constexpr QRgb kBlackDot = 0xFF000000;
constexpr QRgb kGreyDot = 0xFF808080;

/// A picture of 16 columns and 9 units, so that a cell is square: one window of two letters that is on, one
/// of the slate, one that is off.
PicturePlan Plan() {
  PicturePlan plan;
  plan.area = {0, 30, 16, 9};
  plan.look.box = LetterLook::Box::kDark;
  plan.windows = {{0, "One", {2, 31, 2, 1}, true, false, "I "},
                  {1, "Slate", {2, 33, 2, 2}, true, true, "I "},
                  {2, "Off", {2, 36, 2, 1}, false, false, "II"}};
  return plan;
}

class PictureFileTest : public testing::Test {
 protected:
  QImage Picture(const PicturePlan& plan, const PictureOrder& order = {}) const {
    WritePicture(plan, order, folder_.File("out.png"));
    return QImage(QString::fromStdString(folder_.File("out.png")), "PNG")
        .convertToFormat(QImage::Format_RGB32);
  }
  std::string Still(const char* name, QSize size, QImage::Format format = QImage::Format_RGB32) const {
    QImage still(size, format);
    still.fill(Qt::red);
    EXPECT_TRUE(still.save(QString::fromStdString(folder_.File(name)), "PNG"));
    return folder_.File(name);
  }
  TempFolder folder_;
};

/// A cell is 60 pixels wide and high.
TEST_F(PictureFileTest, WindowsLieInTheirCellsInTheirStyle) {
  const QImage plain = Picture(Plan());
  ASSERT_EQ(plain.size(), QSize(960, 540));
  const std::pair<QPoint, QRgb> dots[] = {
      {{119, 60}, kGround},   {{120, 59}, kGround},                            // beside the left upper corner
      {{120, 60}, kBlackDot}, {{239, 119}, kBlackDot}, {{240, 119}, kGround},  // the box and its end
      {{150, 90}, kWhiteDot}, {{210, 90}, kBlackDot},  // the letter, the space behind it
      {{150, 240}, kGround},  {{150, 390}, kGround}};  // neither slate nor off
  for (const auto& [at, color] : dots) EXPECT_EQ(plain.pixel(at), color) << at.x() << ", " << at.y();

  EXPECT_EQ(Picture(Plan(), {.slate = true}).pixel(150, 240), kWhiteDot);
  PicturePlan grey = Plan();
  grey.look = {.white = false, .box = LetterLook::Box::kGrey};
  EXPECT_EQ(Picture(grey).pixel(121, 61), kGreyDot);
  EXPECT_EQ(Picture(grey).pixel(150, 90), kBlackDot);
  grey.look = {.white = false, .outlined = true};
  EXPECT_EQ(Picture(grey).pixel(121, 61), kGround);
  PicturePlan beyond = Plan();
  beyond.windows[0].place = {15, 38, 2, 2};
  EXPECT_EQ(Picture(beyond).pixel(959, 539), kBlackDot);
}

TEST_F(PictureFileTest, HasTheShapeAndTheGroundThatWereOrdered) {
  PicturePlan narrow = Plan();
  narrow.wide = false;
  EXPECT_EQ(Picture(narrow).size(), QSize(960, 720));
  EXPECT_EQ(Picture(Plan(), {.width = 333}).size(), QSize(333, 187));
  EXPECT_EQ(Picture(Plan(), {.width = 328}).size(), QSize(328, 185)) << "184.5 is rounded";
  const QImage still = Picture(Plan(), {.background = Still("still.png", {50, 80}), .safe = true});
  EXPECT_EQ(still.pixel(5, 5), qRgb(255, 0, 0));
  EXPECT_EQ(still.pixel(955, 535), qRgb(255, 0, 0)) << "it fills the picture";
  for (const QPoint corner : {QPoint(48, 300), {96, 300}}) {  // 5 % and 10 % inside
    EXPECT_GT(qGreen(still.pixel(corner)), 100);
    EXPECT_EQ(qGreen(still.pixel(corner + QPoint(5, 0))), 0);
  }
}

TEST_F(PictureFileTest, AFailureLeavesTheOldFile) {
  PicturePlan none = Plan();
  none.area.reset();
  none.trouble = "There is no row for this standard.";
  const std::string old = folder_.Write("out.png", "as it was");
  const std::string tooLarge = Still("large.png", {20000, 5001}, QImage::Format_Mono);
  Still("whole.png", {300, 300});
  const std::string half = folder_.Read("whole.png").substr(0, folder_.Read("whole.png").size() / 2);
  std::filesystem::create_directory(folder_.File("folder"));
  const struct {
    PicturePlan plan;
    std::string background;
    std::string to;
    const char* told;
  } cases[] = {{none, "", old, "no row for this standard"},
               {Plan(), folder_.File("gone.png"), old, "It is not there."},
               {Plan(), folder_.Write("text.png", "<svg/>"), old, "no picture"},
               {Plan(), folder_.Write("half.png", half), old, "damaged"},
               {Plan(), folder_.File("folder"), old, "This is a folder."},
               {Plan(), tooLarge, old, "20000 x 5001 pixels"},
               {Plan(), "", folder_.File("folder"), "This is a folder."},
               {Plan(), "", folder_.File("nowhere/out.png"), "Its folder is not there."}};
  for (const auto& [plan, background, to, told] : cases) {
    try {
      WritePicture(plan, {.background = background}, to);
      ADD_FAILURE() << told;
    } catch (const RuntimeError& failure) {
      EXPECT_THAT(failure.Remedy(), testing::HasSubstr(told));
    }
    EXPECT_EQ(folder_.Read("out.png"), "as it was");
  }
}

}  // namespace
}  // namespace marlinset
