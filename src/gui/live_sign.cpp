// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/live_sign.h"

#include <QPainter>
#include <algorithm>

#include "gui/widgets/look.h"
#include "link/identification.h"
#include "platform/device_address.h"
#include "platform/ms_comm.h"

namespace marlinset {
namespace {

constexpr int kLongestDevice = 24;

QString Word() {
  return QStringLiteral("LIVE");
}

}  // namespace

LiveSign::LiveSign(FrmStart& form, std::function<std::string(int)> deviceName, QWidget* parent)
    : QWidget(parent), form_(form), deviceName_(std::move(deviceName)) {
  setObjectName(QStringLiteral("LiveSign"));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  std::vector<Control*> told = {&form.mnuInter, &form.StatBar(FrmStart::kModelPanel)};
  for (int port = kLowestPort; port <= kHighestPort; ++port) told.push_back(&form.ComMenu(port));
  for (Control* control : told) listening_.emplace_back(control->Changed, [this] { ShowForm(); });
  ShowForm();
}

void LiveSign::ShowForm() {
  if (UnitIsIdentified(form_)) model_ = Shown(form_.StatBar(FrmStart::kModelPanel).Text());
  const bool live = form_.mnuInter.Checked();
  setVisible(live);
  const int port = Port();
  const QString name = port == 0 ? QString() : Shown(form_.ComMenu(port).Caption());
  const QString device = port == 0 ? QString() : Device(port);
  const QString both = model_ + QStringLiteral(", ") + name;
  const QStringList texts{device.isEmpty() ? both : QStringLiteral("%1 (%2)").arg(both, device), both, name};
  if (!live || texts == texts_) return;
  texts_ = texts;
  setAccessibleName(Word() + QStringLiteral(": ") + Unit());
  setToolTip(Unit() +
             QStringLiteral("\nInteractive mode: each change goes to the unit at once. Mode > Off ends it."));
  updateGeometry();
  update();
}

int LiveSign::Port() const {
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    if (form_.ComMenu(port).Checked()) return port;
  }
  return 0;
}

QString LiveSign::Device(int port) const {
  QString device = deviceName_ ? Shown(ShownDevice(deviceName_(port))) : QString();
  const QLatin1String devices("/dev/");
  device = device.startsWith(devices) ? device.mid(devices.size()) : device.section(QLatin1Char('/'), -1);
  return device.size() > kLongestDevice ? QChar(0x2026) + device.right(kLongestDevice) : device;
}

QFont LiveSign::WordFont() const {
  QFont bold = font();
  bold.setBold(true);
  return bold;
}

QSize LiveSign::WordSize() const {
  const QFontMetrics letters(WordFont());
  const int unit = SpaceUnit(*this);
  return {letters.horizontalAdvance(Word()) + 3 * unit, letters.height() + unit};
}

/// The longest text that can be shown uncut; none if there is not even room for the port.
QString LiveSign::Fitting(int width) const {
  for (const QString& text : texts_) {
    if (fontMetrics().horizontalAdvance(text) <= width) return text;
  }
  return {};
}

QSize LiveSign::sizeHint() const {
  const QSize word = WordSize();
  return {word.width() + 2 * SpaceUnit(*this) + fontMetrics().horizontalAdvance(Unit()), word.height()};
}

QSize LiveSign::minimumSizeHint() const {
  return WordSize();
}

void LiveSign::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QSize size = WordSize();
  const QRect word(QPoint(0, (height() - size.height()) / 2), size);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Ground());
  painter.drawRoundedRect(word, 3, 3);
  painter.setPen(Ink());
  painter.setFont(WordFont());
  painter.drawText(word, Qt::AlignCenter, Word());
  painter.setFont(font());
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect rest = rect().adjusted(word.width() + SpaceUnit(*this), 0, 0, 0);
  painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, Fitting(rest.width()));
}

}  // namespace marlinset
