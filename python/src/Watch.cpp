// Runs of processors for Python: without the interpreter's lock, heeding Ctrl-C, telling progress.
#include "Watch.h"

#include "Arguments.h"

#include "ORLIX/ORLIXCore/CallWatch.h"

namespace orlix::python {

unsigned long bytesOf(const image::BaseImage& image)
{
    return image.getGeometry().getNbPixels() * image::elementSize(image.getBufferType());
}

nb::object Watch::observerOf(nb::handle progress)
{
    if (progress.is(nb::handle(Py_True))) {
        return nb::module_::import_("orlix._progress").attr("bar")();
    }
    if (progress.is(nb::handle(Py_False))) {
        return {};
    }
    if (PyCallable_Check(progress.ptr()) == 0) {
        refuseType(progress, "progress", "a callable, True, False or None");
    }
    return nb::borrow(progress);
}

bool Watch::look(unsigned long done, unsigned long known)
{
    m_last = std::chrono::steady_clock::now();
    const nb::gil_scoped_acquire lock;
    if (m_error) {
        return false;
    }
    try {
        if (PyErr_CheckSignals() != 0) {
            throw nb::python_error();
        }
        if (m_progress.is_valid()) {
            m_progress(done, known);
        }
    } catch (nb::python_error& error) {
        m_error.emplace(std::move(error));
        return false;
    }
    return true;
}

void Watch::rethrow()
{
    if (m_error) {
        nb::python_error error(std::move(*m_error));
        m_error.reset();
        throw error;
    }
}

void Watch::run(const std::function<void()>& work)
{
    core::Progress last;
    try {
        const nb::gil_scoped_release release;
        std::optional<core::CallWatch> calls;
        calls.emplace([this, &calls, &last](const core::Progress& progress) {
            last = progress;
            if (isDue() && std::this_thread::get_id() == m_thread && !look(progress.done, progress.known)) {
                calls->requestCancellation();
            }
        });
        work();
    } catch (...) {
        rethrow(); // what ended the run, instead of the message that it was ended
        throw;
    }
    if (m_progress.is_valid()) {
        look(last.known, last.known);
    }
    rethrow();
}

void Watch::lookBetween(unsigned long done, unsigned long known)
{
    const bool bLast = done == known && m_progress.is_valid();
    if (m_bWatched && (bLast || isDue()) && !look(done, known)) {
        rethrow();
    }
}

} // namespace orlix::python
