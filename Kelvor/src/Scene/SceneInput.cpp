#include "SceneInput.h"

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QScopedValueRollback>

#include <sys/resource.h>

#include <algorithm>
#include <cstddef>

namespace {

constexpr unsigned readsBetweenLooks = 1 << 10; // the clock costs as much as some readings
constexpr qint64 interval = 40;                 // ms
constexpr std::ptrdiff_t stackShare = 2;        // of it, one part may be used for reading
constexpr std::ptrdiff_t usualStack = 8 << 20;  // bytes

std::ptrdiff_t usableStack()
{
    rlimit limit{};
    const bool isKnown = getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
    return (isKnown ? std::ptrdiff_t(limit.rlim_cur) : usualStack) / stackShare;
}

const char* stackPosition()
{
    return static_cast<const char*>(__builtin_frame_address(0));
}

} // namespace

SceneInput::SceneInput(const Progress& progress, qint64 size)
    : m_progress(progress)
    , m_size(size)
{
    m_sinceTold.start();
}

SoSeparator* SceneInput::readScene(bool* readToEnd)
{
    m_stack = stackPosition();
    SoSeparator* const all = new SoSeparator;
    all->ref();
    SoNode* node = nullptr;
    bool good = true;
    do {
        good = SoDB::read(this, node);
        if (good && node)
            all->addChild(node);
    } while (good && node && skipWhiteSpace());
    *readToEnd = eof();
    popFile(); // connects the file's routes

    SoSeparator* scene = nullptr;
    if (good && !hasStopped()) {
        const bool single =
            all->getNumChildren() == 1 && all->getChild(0)->isOfType(SoSeparator::getClassTypeId());
        scene = single ? static_cast<SoSeparator*>(all->getChild(0)) : all;
        scene->ref();
    }
    all->unref();
    if (scene)
        scene->unrefNoDelete();
    return scene;
}

bool SceneInput::goesOn()
{
    if (++m_reads % readsBetweenLooks == 0 && m_progress && !m_telling && m_sinceTold.elapsed() >= interval)
        tell();
    static const std::ptrdiff_t usable = usableStack();
    m_tooDeep = m_tooDeep || (m_stack && m_stack - stackPosition() > usable);
    return !hasStopped();
}

void SceneInput::tell()
{
    // Whoever hears of it may have the event loop run, and something there may read.
    const QScopedValueRollback telling(m_telling, true);
    const double share = m_size > 0 ? std::min(1.0, double(getNumBytesRead()) / double(m_size)) : -1.0;
    m_cancelled = !m_progress(share);
    m_sinceTold.start();
}

SbBool SceneInput::read(SbName& name, SbBool validIdent)
{
    return goesOn() && SoInput::read(name, validIdent);
}

SbBool SceneInput::read(SbString& string)
{
    return goesOn() && SoInput::read(string);
}

SbBool SceneInput::read(int& number)
{
    return goesOn() && SoInput::read(number);
}

SbBool SceneInput::read(unsigned int& number)
{
    return goesOn() && SoInput::read(number);
}

SbBool SceneInput::read(float& number)
{
    return goesOn() && SoInput::read(number);
}

SbBool SceneInput::read(double& number)
{
    return goesOn() && SoInput::read(number);
}

SbBool SceneInput::readBinaryArray(int32_t* numbers, int length)
{
    return goesOn() && SoInput::readBinaryArray(numbers, length);
}

SbBool SceneInput::readBinaryArray(float* numbers, int length)
{
    return goesOn() && SoInput::readBinaryArray(numbers, length);
}
