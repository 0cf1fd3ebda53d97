#pragma once

#include "naive_talk.h"

// One naive talk for each command that listens. The words of the line stand here as they are on the line.

class NaiveListener : public NaiveTalk
{
public:
    explicit NaiveListener(const TalkSetUp& setUp) : NaiveTalk(setUp) {}

private:
    void begin() override;
    void onLine(const QString& line) override;
    bool readsBytes() const override { return true; }
};

class NaiveScan : public NaiveTalk
{
public:
    explicit NaiveScan(const TalkSetUp& setUp) : NaiveTalk(setUp) {}

private:
    void begin() override;
    void onLine(const QString& line) override;
    void afterReply() override;
    bool dropsRepeats() const override { return false; }

    QVariantMap m_found; ///< by address
};

class NaiveConnection : public NaiveTalk
{
public:
    explicit NaiveConnection(const TalkSetUp& setUp) : NaiveTalk(setUp) {}

private:
    void begin() override;
    void onLine(const QString& line) override;
    void onProbeAnswer(const QString& line);
    void hangUpAndEnd();

    QString m_address;
    bool m_isEchoed = false;
    bool m_isAnotherEchoed = false;
    bool m_isProbing = false;
};

class NaiveConfiguration : public NaiveTalk
{
public:
    explicit NaiveConfiguration(const TalkSetUp& setUp) : NaiveTalk(setUp) {}

private:
    void begin() override;
    void onLine(const QString& line) override;
};

class NaiveProgramList : public NaiveTalk
{
public:
    explicit NaiveProgramList(const TalkSetUp& setUp) : NaiveTalk(setUp) {}

private:
    void begin() override;
    void onLine(const QString& line) override;
    void onProgram(const QString& text);
    void storeAndEnd();

    QVariantList m_programs;
    QString m_first;
    int m_idleRetries = 0;
};

class NaiveSelection : public NaiveTalk
{
public:
    explicit NaiveSelection(const TalkSetUp& setUp) : NaiveTalk(setUp) {}

private:
    void begin() override;
    void onLine(const QString& line) override;

    int m_wanted = 0;
    int m_steps = 0;
};
