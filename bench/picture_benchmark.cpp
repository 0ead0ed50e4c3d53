// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of the windows while a spin is held down: what one step costs until it is painted.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <memory>

#include "bench/bench_tool.h"
#include "bench/seconds.h"
#include "gui/picture_view.h"
#include "gui/window_selection.h"

namespace marlinset {
namespace {

/// A change is planned in one turn of the event loop and painted in the next.
constexpr int kMostTurns = 3;

/// Counts how often a widget is painted.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
  int Paints() const { return paints_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints_;
    return QObject::eventFilter(watched, event);
  }

 private:
  int paints_ = 0;
};

/// Seven windows in the most expensive style, over a still, on a screen of two pixels to a point.
void PictureStep(benchmark::State& state) {
  BenchTool tool;
  FrmStart& form = tool->form;
  for (const int row : {0, 1, 2, 3, 4, 5, 6}) form.chOnOff(row).SetValue(1);
  for (int i = 0; i < form.ComWin(FrmStart::kCharStyle).ListCount(); ++i) {
    if (form.ComWin(FrmStart::kCharStyle).List()[static_cast<std::size_t>(i)] == "White with Outline")
      form.ComWin(FrmStart::kCharStyle).SetListIndex(i);
  }
  PictureView view(form, tool->pictureRules, std::make_shared<WindowSelection>(), nullptr);
  QImage still(2560, 1440, QImage::Format_RGB32);
  still.fill(Qt::darkCyan);
  view.SetStill(still);
  view.resize(static_cast<int>(state.range(0)), static_cast<int>(state.range(0)) * 9 / 16);
  view.show();
  QCoreApplication::processEvents();
  const PaintCount count(view);
  double seconds = 0;
  bool up = true;
  for (auto step : state) {
    form.udHor(0).OperatorStep(up);
    up = !up;
    const double taken = SecondsOf([&] {
      const int before = count.Paints();
      for (int turns = 0; turns < kMostTurns && count.Paints() == before; ++turns)
        QCoreApplication::processEvents();
    });
    state.SetIterationTime(taken);
    seconds += taken;
  }
  if (count.Paints() < state.iterations()) state.SkipWithError("not every step was painted");
  state.counters["step_us"] = 1e6 * seconds / static_cast<double>(state.iterations());
}
BENCHMARK(PictureStep)->UseManualTime()->Unit(benchmark::kMicrosecond)->Arg(480)->Arg(1920)->Iterations(500);

}  // namespace
}  // namespace marlinset
