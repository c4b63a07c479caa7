#pragma once

/// \file
/// A lock that a thread holds for the rest of its life. The system takes it back once the thread
/// has run its last instruction: who gets it then knows that the thread is out of all code, that of
/// its own end included. It does for detached threads what joining does for the others.

#include <pthread.h>

#include <cerrno>

namespace platform {

class LifelongLock {
public:
    LifelongLock() {
        pthread_mutexattr_t attributes;
        pthread_mutexattr_init(&attributes);
        pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
        pthread_mutex_init(&mutex, &attributes);
        pthread_mutexattr_destroy(&attributes);
    }
    ~LifelongLock() {
        pthread_mutex_destroy(&mutex);
    }
    LifelongLock(const LifelongLock&) = delete;
    LifelongLock& operator=(const LifelongLock&) = delete;

    /// Takes the lock for the rest of the calling thread's life, once its last holder is gone.
    void HoldForLife() {
        if (pthread_mutex_lock(&mutex) == EOWNERDEAD) {
            pthread_mutex_consistent(&mutex);
        }
    }

    /// Waits until the thread that holds the lock is gone.
    void WaitForHolder() {
        HoldForLife();
        pthread_mutex_unlock(&mutex);
    }

private:
    pthread_mutex_t mutex{};
};

} // namespace platform
