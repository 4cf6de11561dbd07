#pragma once

class SYTermScreen;

// One modal thing on the screen (a dialog, a message box, the file dialog) as the modal
// host stacks them: drawn bottom to top, keys to the top one until it is done.
class SYTermLayer {
public:
    virtual ~SYTermLayer() = default;

    // Draws over what lies below; the top layer also places the cursor.
    virtual void Draw(SYTermScreen& screen, bool top) = 0;
    virtual void HandleKey(int key) = 0;
    virtual bool Done() const = 0;
    // The keys ran out: close as the Esc key would, without asking.
    virtual void Abandon() = 0;
};
