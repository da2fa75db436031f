//===- support/AsyncTask.h - Work a domain can wait for -------------------===//
//
// nySupport::AsyncTask is a piece of work that runs away from the main thread
// while its domain counts it as an operation in progress. A domain holds the
// task it is running (Domain::setAsyncTask, not owned) and blocks on it with
// Domain::waitForAsyncTask, which needs nothing but wait(). Tasks are
// reference counted: whoever starts one keeps it alive until it completes.
//
// Example:
//   class Export : public nySupport::AsyncTask {
//   public:
//     void wait() override { worker.wait(); }
//   };
//   domain.setAsyncTask(task.get());
//   domain.waitForAsyncTask();   // calls task->wait()
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_ASYNCTASK_H
#define NYSUPPORT_ASYNCTASK_H

#include "base/ReferenceCount.h"

namespace nySupport {

class AsyncTask : public qo::ReferenceCount {
public:
  // Returns once the work has finished on its thread.
  virtual void wait() = 0;
};

} // namespace nySupport

#endif // NYSUPPORT_ASYNCTASK_H
