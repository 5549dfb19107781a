#pragma once

#include <QString>
#include <exception>

class QWidget;

namespace vemo {

/// Waits until the user has read what happened. Texts of a scene or file are not taken for HTML, which
/// could name files to read.
void showError(QWidget* parent, const QString& title, const std::exception& error);

}  // namespace vemo
