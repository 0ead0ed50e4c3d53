// SPDX-License-Identifier: GPL-3.0-or-later
// The least that a program with a window can be: it shows an empty one and tells so with a byte on a line.

#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  window.show();
  QTimer::singleShot(0, &window, [&] {
    QFile line(QString::fromLocal8Bit(argv[1]));
    if (line.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) line.putChar('\x02');
  });
  return QApplication::exec();
}
