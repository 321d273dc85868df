#include "media/helper/HelperSocket.h"

#include <cstring>

#include <sys/socket.h>
#include <sys/uio.h>

namespace lumeo {
namespace {

/// A message of one block of bytes, with space for one descriptor.
struct Message {
    iovec part{};
    alignas(cmsghdr) std::byte control[CMSG_SPACE(sizeof(int))]{};
    msghdr header{};

    Message(void* bytes, std::size_t count) {
        part = {bytes, count};
        header.msg_iov = &part;
        header.msg_iovlen = 1;
    }
    void makeRoom() {
        header.msg_control = control;
        header.msg_controllen = sizeof control;
    }
};

} // namespace

bool sendRecord(int socket, std::span<const std::byte> record, std::optional<int> descriptor) {
    while (!record.empty()) {
        Message message(const_cast<std::byte*>(record.data()), record.size());
        if (descriptor) {
            message.makeRoom();
            cmsghdr* const head = CMSG_FIRSTHDR(&message.header);
            head->cmsg_level = SOL_SOCKET;
            head->cmsg_type = SCM_RIGHTS;
            head->cmsg_len = CMSG_LEN(sizeof(int));
            std::memcpy(CMSG_DATA(head), &*descriptor, sizeof(int));
        }
        const ssize_t sent = retrying([&] { return sendmsg(socket, &message.header, MSG_NOSIGNAL); });
        if (sent <= 0) {
            return false;
        }
        record = record.subspan(static_cast<std::size_t>(sent));
        descriptor.reset();
    }
    return true;
}

bool receiveRecord(int socket, std::span<std::byte> record, Descriptor& descriptor) {
    while (!record.empty()) {
        Message message(record.data(), record.size());
        message.makeRoom();
        const ssize_t received = retrying([&] { return recvmsg(socket, &message.header, MSG_CMSG_CLOEXEC); });
        if (received <= 0) {
            return false;
        }
        for (cmsghdr* head = CMSG_FIRSTHDR(&message.header); head != nullptr;
             head = CMSG_NXTHDR(&message.header, head)) {
            if (head->cmsg_level == SOL_SOCKET && head->cmsg_type == SCM_RIGHTS) {
                int number = -1;
                std::memcpy(&number, CMSG_DATA(head), sizeof number);
                descriptor = Descriptor(number);
            }
        }
        record = record.subspan(static_cast<std::size_t>(received));
    }
    return true;
}

} // namespace lumeo
