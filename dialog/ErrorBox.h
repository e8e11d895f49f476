#pragma once

class QString;
class QWidget;
class ZelMessageBox;

/// The one way in which the dialog tells the user that something is wrong.
namespace error_box {

/// Widest and tallest growth of a box over the size that the host gives it.
struct Growth {
    int width = 10;       ///< pixels
    int messageWidth = 0; ///< pixels by which the text area is fixed wider
};

/// Shows the text modally. The box grows by 20 pixels per line feed, up to a height of 350.
void show(const QString& text, const Growth& growth = {});
/// Shows the text modally in a box of the host's own size.
void showAsIs(const QString& text);
/// Asks modally; true when the user agrees.
bool ask(const QString& question, QWidget* parent);

} // namespace error_box
