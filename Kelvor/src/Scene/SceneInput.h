#pragma once

#include <Inventor/SoInput.h>

#include <QElapsedTimer>

#include <functional>

class SoSeparator;

/// Coin's reader, with a word on how far it has come and a way to stop it. It stops by itself before nodes
/// that are nested too deeply use up the stack: Coin reads them by recursion.
class SceneInput : public SoInput
{
public:
    /// What is called some times a second while a file is read, with the share of it that has been read (0 to
    /// 1; less than 0 when that cannot be told). It gives false to end the reading.
    using Progress = std::function<bool(double share)>;

    /// `size` is that of the file as it will be read, in bytes, or 0 when it is not known.
    SceneInput(const Progress& progress, qint64 size);

    /// Reads all nodes of the open file like `SoDB::readAll()`, which tells only once in a process that a
    /// file goes on after the last node it could read; that is what `readToEnd` says. An unreferenced
    /// separator, or null.
    SoSeparator* readScene(bool* readToEnd);

    /// It was cancelled, or the file is nested too deeply.
    bool hasStopped() const { return m_cancelled || m_tooDeep; }
    bool isTooDeep() const { return m_tooDeep; }

    using SoInput::read;
    using SoInput::readBinaryArray;
    SbBool read(SbName& name, SbBool validIdent = FALSE) override;
    SbBool read(SbString& string) override;
    SbBool read(int& number) override;
    SbBool read(unsigned int& number) override;
    SbBool read(float& number) override;
    SbBool read(double& number) override;
    SbBool readBinaryArray(int32_t* numbers, int length) override;
    SbBool readBinaryArray(float* numbers, int length) override;

private:
    bool goesOn();
    void tell();

    const Progress& m_progress;
    const qint64 m_size;
    QElapsedTimer m_sinceTold;
    unsigned m_reads = 0;
    bool m_telling = false;
    bool m_cancelled = false;
    const char* m_stack = nullptr; // where reading began; only compared
    bool m_tooDeep = false;
};
