#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/Element.h"

namespace vardel {

class MenuItem;
struct Platform;

// A window of the program without a window system: named controls, one routine for each event. A
// form lives from its first touch until it was unloaded and none of its event routines is running.
class Form : public Element {
public:
    // What the mouse pointer over a form can be.
    enum class Pointer { Normal = 0, Hourglass = 11 };

    Form(Platform& platform, std::string name, std::string caption);
    virtual ~Form() = default;

    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }
    Pointer MousePointer() const { return pointer_; }
    void SetMousePointer(Pointer pointer) { Assign(pointer_, pointer); }

    // Whether the form is designed in colours of its own, whatever the desktop's are.
    bool HasOwnColors() const { return ownColors_ || backColor_ != White; }
    void SetOwnColors() { ownColors_ = true; }

    // The topic of what is held down in the form, which takes no focus; None: nothing is held.
    HelpTopic HeldTopic() const { return heldTopic_; }
    void SetHeldTopic(HelpTopic topic) { Assign(heldTopic_, topic); }

    const std::vector<MenuItem*>& MenuBar() const { return menuBar_; }
    Platform& GetPlatform() const { return platform_; }

    void Show();
    // Returns once the form is hidden or unloaded.
    void ShowModal(Form* owner = nullptr);
    void Hide() { SetVisible(false); }
    // Runs Form_Unload and takes the window off the screen; once more does nothing.
    void Unload();
    bool Unloaded() const { return unloaded_; }
    // The user closes the window by its frame.
    virtual void CloseByFrame() { Unload(); }

    // Runs an event routine. An exception ends at this border with a message, never further out.
    // The form may be gone when this returns.
    void Run(const std::function<void()>& routine);

private:
    friend class MenuItem;
    template <class T>
    friend class FormSlot;

    virtual void Form_Load() {}
    virtual void Form_Unload() {}

    Platform& platform_;
    std::string name_;
    std::string caption_;
    Pointer pointer_ = Pointer::Normal;
    HelpTopic heldTopic_ = HelpTopic::None;
    std::vector<MenuItem*> menuBar_;

    bool ownColors_ = false;
    int routinesRunning_ = 0;
    bool unloaded_ = false;
    std::function<void()> onUnloaded_;  // no longer the form that its name finds
    std::function<void()> onIdle_;      // unloaded, and nothing of it is on the stack
};

}  // namespace vardel
