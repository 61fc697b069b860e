#pragma once

#include <QEvent>
#include <QString>

#include <cstdint>
#include <memory>

class CVolBrowserInfo;

// What the thread of a browse tells its receiver, in posted events.

/// The browse begins.
class CVolBrowseStartEvent : public QEvent
{
public:
    static constexpr int eventType = 1100;

    explicit CVolBrowseStartEvent(const QString& text);

    const QString& text() const { return m_text; }

private:
    QString m_text;
};

/// A folder is entered.
class CVolBrowseProgressEvent : public QEvent
{
public:
    static constexpr int eventType = 1101;

    CVolBrowseProgressEvent(const QString& folder, std::int32_t step, std::int32_t total);

    const QString& folder() const { return m_folder; }
    std::int32_t step() const { return m_step; }
    std::int32_t total() const { return m_total; }

private:
    QString m_folder;
    std::int32_t m_step;
    std::int32_t m_total;
};

/// A data set was found. The event owns what it carries until the receiver takes it: an event that is never
/// delivered, or whose receiver takes nothing, frees it.
class CVolBrowseOneFileCompltdEvent : public QEvent
{
public:
    static constexpr int eventType = 1102;

    explicit CVolBrowseOneFileCompltdEvent(std::unique_ptr<CVolBrowserInfo> info);
    ~CVolBrowseOneFileCompltdEvent() override;
    CVolBrowseOneFileCompltdEvent(const CVolBrowseOneFileCompltdEvent&) = delete;
    CVolBrowseOneFileCompltdEvent& operator=(const CVolBrowseOneFileCompltdEvent&) = delete;

    /// Hands the data set over; null when there is none or it was taken before.
    std::unique_ptr<CVolBrowserInfo> takeInfo();

private:
    std::unique_ptr<CVolBrowserInfo> m_info;
};

/// The browse has ended; the text is empty but for one that was aborted.
class CVolBrowseEndEvent : public QEvent
{
public:
    static constexpr int eventType = 1103;

    explicit CVolBrowseEndEvent(const QString& text);

    const QString& text() const { return m_text; }

private:
    QString m_text;
};
