#pragma once

#include <QString>
#include <exception>

class QWidget;

namespace vemo {

/// Waits until the user has read what happened. What the text says of a scene or file is shown as it
/// is, also where it looks like HTML, which could name files to read.
void showError(QWidget* parent, const QString& title, const std::exception& error);

}  // namespace vemo
