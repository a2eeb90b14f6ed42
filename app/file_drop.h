// Files and folders that are dropped anywhere in the window, or pasted.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QMimeData;
class QWidget;

namespace brindlewick {

/// The paths of the local files in the data, in order.
[[nodiscard]] std::vector<std::u16string> localFiles(const QMimeData& data);

/// Accepts what is dropped on the window if it has local files.
class FileDrop : public QObject {
public:
    /// While files are dragged over the window, `highlight` is called with true, then with false. `drop` is
    /// called with the paths, in the drop's order.
    FileDrop(QWidget& window, std::function<void(bool)> highlight,
             std::function<void(const std::vector<std::u16string>&)> drop);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(bool)> highlight_;
    std::function<void(const std::vector<std::u16string>&)> drop_;
};

} // namespace brindlewick
