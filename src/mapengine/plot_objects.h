#pragma once

#include <cstddef>
#include <string>

#include "mapengine/engine_session.h"
#include "mapengine/member_object.h"

namespace crownlab {

/// Something of a plot document, for which it holds on to the document.
class PlotPart {
public:
    PlotPart(EngineContext context, PlotRef document) : Context(std::move(context)), document_(std::move(document)) {}

    /// AutomationFailed once the document was closed.
    PlotDocument& Document() const;
    void Touch() const { Context.Session->Touch(Document()); }

    EngineContext Context;

protected:
    const PlotRef& Ref() const { return document_; }

private:
    PlotRef document_;
};

/// Adds a map of the grid in `path` to the document; its index among the shapes. The grid is read aside.
std::size_t AddMap(const PlotPart& page, std::string_view member, MapKind kind, const std::string& path);

/// Adds a text in the document's default font; its index.
std::size_t AddText(const PlotPart& page, double x, double y, const std::string& text);

/// The shapes of a plot document.
class ShapesObject : public PlotPart, public MemberObject<ShapesObject> {
public:
    explicit ShapesObject(const PlotPart& page) : PlotPart(page) {}
    static constexpr std::string_view kKind = "list of shapes";
    static std::span<const ObjectMember<ShapesObject>> Members();
    ObjectRef Added(std::size_t map) const;
    ObjectRef AddedText(std::size_t text) const;
};

/// The font that added texts take over.
class FontObject : public PlotPart, public MemberObject<FontObject> {
public:
    explicit FontObject(const PlotPart& page) : PlotPart(page) {}
    static constexpr std::string_view kKind = "font";
    static std::span<const ObjectMember<FontObject>> Members();
    TextFont& Record() const { return Document().DefaultFont; }
};

/// A text on the page.
class TextObject : public PlotPart, public MemberObject<TextObject> {
public:
    TextObject(const PlotPart& page, std::size_t shape) : PlotPart(page), shape_(shape) {}
    static constexpr std::string_view kKind = "text";
    static std::span<const ObjectMember<TextObject>> Members();
    PlotText& Record() const { return std::get<PlotText>(Document().Shapes[shape_]); }

private:
    std::size_t shape_;
};

}  // namespace crownlab
