#include "app/dialog_loop.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QEventLoop>

namespace brindlewick {

namespace {

/// Discards the window's input while this object exists. A click on the window shows the dialog.
class InputBlock : public QObject {
public:
    InputBlock(QWidget& window, QDialog& dialog) : window_(window), dialog_(dialog) {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWidgetType() || static_cast<QWidget*>(watched)->window() != &window_)
            return false;
        switch (event->type()) {
        case QEvent::WindowActivate:
            QMetaObject::invokeMethod(
                &dialog_, [this] { showDialog(); }, Qt::QueuedConnection);
            return false;
        case QEvent::MouseButtonPress:
            showDialog();
            return true;
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::TouchBegin:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return true;
        default:
            return false;
        }
    }

private:
    void showDialog() {
        dialog_.setWindowState(dialog_.windowState() & ~Qt::WindowMinimized);
        dialog_.raise();
        dialog_.activateWindow();
    }

    QWidget& window_;
    QDialog& dialog_;
};

} // namespace

int runDialog(QWidget& window, QDialog& dialog) {
    const InputBlock block(window, dialog);
    QEventLoop loop;
    QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
    dialog.setModal(false);
    // A dialog that is not modal would get a button that minimises it.
    dialog.setWindowFlags(dialog.windowFlags() | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    dialog.show();
    loop.exec(QEventLoop::DialogExec);
    return dialog.result();
}

} // namespace brindlewick
