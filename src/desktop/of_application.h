// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QObject>

// What there is once in a program with windows. It belongs to the application object, and goes with it: after every
// window, before anything that main() made ahead of the application.

namespace velorin {

/// Keeps a T among the children of the application object.
template <typename T>
class KeptByApplication final : public QObject {
 public:
  using QObject::QObject;

  T value;
};

/// The application's T; null before it is first made, and while there is no application object.
template <typename T>
T* find_of_application() {
  if (qApp == nullptr) return nullptr;
  for (QObject* child : qApp->children()) {
    if (auto* kept = dynamic_cast<KeptByApplication<T>*>(child)) return &kept->value;
  }
  return nullptr;
}

/// The application's T, made by default on first use. A T is told from others by its type alone. Requires the
/// application object.
template <typename T>
T& of_application() {
  if (T* made = find_of_application<T>()) return *made;
  Q_ASSERT_X(qApp != nullptr, "of_application", "no application object");
  return (new KeptByApplication<T>(qApp))->value;
}

}  // namespace velorin
