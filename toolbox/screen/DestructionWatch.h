// What becomes of a dialog whose window somebody else has destroyed.

#ifndef TOOLBOX_SCREEN_DESTRUCTIONWATCH_H
#define TOOLBOX_SCREEN_DESTRUCTIONWATCH_H

#include <QAbstractNativeEventFilter>
#include <QDialog>

namespace Toolbox {

/// While it lives, has a dialog on an X display whose window another client destroys take that for Escape, and end if
/// that does not end it: nobody could any more. Qt takes no notice, and would wait.
class DestructionWatch : public QAbstractNativeEventFilter {
public:
    explicit DestructionWatch(QDialog& dialog);
    ~DestructionWatch() override;
    DestructionWatch(const DestructionWatch&) = delete;
    DestructionWatch& operator=(const DestructionWatch&) = delete;

    bool nativeEventFilter(const QByteArray& type, void* event, qintptr* result) override;

private:
    QDialog& m_dialog;
};

}  // namespace Toolbox

#endif
