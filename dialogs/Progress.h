#pragma once

// Progress is what a long job reports to: a bar's range and position, a main and a detail
// text, a picture. It is held by TAutoPtr. Any call may throw Progress::CancelledException
// when the user stopped the job (or another job's section of the same dialog): the exception
// carries the id of the Progress that was stopped.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "style/TavoLibGuiExport.h"

#include <QImage>
#include <QString>
#include <exception>

class TAVOLIBGUI_EXPORT Progress : public virtual MAutoObj
{
public:
    // Thrown out of any progress call once the user has stopped the job, so that the host's
    // long loop unwinds; id() names the Progress that was stopped. Catch it where the work
    // began.
    class TAVOLIBGUI_EXPORT CancelledException : public std::exception
    {
    public:
        explicit CancelledException(int id) : mId(id) { }
        int id() const { return mId; }
        const char *what() const noexcept override { return "progress cancelled"; }

    private:
        int mId;
    };

    // Each new Progress takes the next number of a process-wide count from 1; a copy keeps it.
    Progress();
    Progress(const Progress &other) = default;
    ~Progress() override;

    int id() const { return mId; }

    // Sets the bar's range and goes to `first`; a range without length shows a busy bar.
    virtual void setRange(int first, int last) = 0;
    virtual void setText(const QString &text) = 0;
    virtual void setDetailText(const QString &text) = 0;
    // -1 is one further than now; values outside the range are dropped.
    virtual void setValue(int value) = 0;
    // Runs the bar to its end and resets it.
    virtual void finish() = 0;
    // Marks the bar busy and gives the interface a chance to update.
    virtual void tick() = 0;
    virtual void setImage(const QImage &image) = 0;
    // Maximum minus minimum, and the position; 0 without a bar.
    virtual int range() const = 0;
    virtual int value() const = 0;

private:
    int mId;
};
