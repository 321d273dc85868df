#pragma once

#include "support/EventLoop.h"
#include "support/FaultyFileSystem.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace lumeo {

/// Blocks the threads of jobs at certain calls of the disk until it is opened or destroyed.
class Gate {
public:
    using Which = std::function<bool(const DiskCall&)>;

    Gate(FaultyFileSystem& disk, Which which) {
        disk.beforeEachCall([door = door_, which = std::move(which)](const DiskCall& call) {
            if (which(call)) {
                ++door->arrivals;
                door->isOpen.wait(false);
            }
        });
    }
    Gate(FaultyFileSystem& disk, std::string operation)
        : Gate(disk, [operation = std::move(operation)](const DiskCall& call) {
              return call.operation == operation;
          }) {}
    ~Gate() { open(); }
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

    void open() const {
        door_->isOpen = true;
        door_->isOpen.notify_all();
    }
    [[nodiscard]] bool awaitArrival(int count = 1) const {
        return testing::waitUntil([this, count] { return door_->arrivals >= count; });
    }

private:
    struct Door {
        std::atomic<bool> isOpen = false;
        std::atomic<int> arrivals = 0;
    };
    std::shared_ptr<Door> door_ = std::make_shared<Door>();
};

} // namespace lumeo
