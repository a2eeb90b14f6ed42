// Files and folders that are dropped anywhere in the window, or pasted.
#pragma once

#include <QObject>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

class QMimeData;
class QWidget;

namespace brindlewick {

struct DroppedFiles {
    std::vector<std::u16string> paths; ///< in order
    std::size_t elsewhere = 0;         ///< files of other computers, which have no path here

    bool empty() const noexcept { return paths.empty() && elsewhere == 0; }
};

/// The files in the data. The host of an address is left out if it is this computer's. With another host, the
/// address becomes a network path on Windows; other systems have no path for it.
[[nodiscard]] DroppedFiles filesIn(const QMimeData& data);

/// Accepts what is dropped on the window if it has files.
class FileDrop : public QObject {
public:
    /// While files are dragged over the window, `highlight` is called with true, then with false. `drop` is
    /// called with the files.
    FileDrop(QWidget& window, std::function<void(bool)> highlight,
             std::function<void(const DroppedFiles&)> drop);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(bool)> highlight_;
    std::function<void(const DroppedFiles&)> drop_;
};

} // namespace brindlewick
