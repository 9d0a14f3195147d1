// A store of pictures on a form, without a face: the icons of lists.
#pragma once

#include "controls/Control.h"
#include "controls/Picture.h"

#include <vector>

// Pictures are numbered from 0. A number out of range raises failure 9.
class McImageList {
public:
    McImageList() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    const std::vector<Picture>& ListImages() const { return m_Images; }
    int ImageCount() const { return static_cast<int>(m_Images.size()); }
    const Picture& Image(int index) const;
    void Image(int index, const Picture& picture);
    void AddNewImage(const Picture& picture) { m_Images.push_back(picture); }
    // The number of the picture that its form shows; only that of a picture can be set.
    int CurrentImage() const { return m_CurrentImage; }
    void CurrentImage(int index);

    // In the layout: ImageCount=2; Images0=task-text; Images1=task-word; CurrentImage=0.

private:
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    std::size_t Checked(int index) const;

    std::vector<Picture> m_Images;
    int m_CurrentImage = 0;
};
