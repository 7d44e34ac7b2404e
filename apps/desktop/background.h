#pragma once

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>
#include <QThreadPool>
#include <utility>

namespace aluframe::desktop {

/// Does work on another thread and hands what it returns to `take` in the window's thread, unless
/// the receiver is gone by then. What the work uses must be its own; it must not throw.
template <class Work, class Take>
void in_background(QObject* receiver, Work work, Take take) {
  QThreadPool::globalInstance()->start([guard = QPointer<QObject>(receiver), work = std::move(work),
                                        take = std::move(take)]() mutable {
    auto result = work();
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [guard, take = std::move(take), result = std::move(result)]() mutable {
          if (guard) take(std::move(result));
        },
        Qt::QueuedConnection);
  });
}

}  // namespace aluframe::desktop
