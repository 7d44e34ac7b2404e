#pragma once

#include <QColor>
#include <QOpenGLBuffer>
#include <QOpenGLShaderProgram>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "aluframe/picture/point.h"

namespace aluframe::desktop {

/// Which corners of a buffer are drawn.
struct Indices {
  QOpenGLBuffer buffer{QOpenGLBuffer::IndexBuffer};
  int count = 0;
};

/// Where a vertex attribute stands in the items of a buffer.
struct Attribute {
  const char* name;
  GLenum type;
  int offset, values;
};

template <class Item>
void fill(QOpenGLBuffer& buffer, const std::vector<Item>& items) {
  if (!buffer.isCreated()) buffer.create();
  buffer.bind();
  buffer.allocate(items.data(), static_cast<int>(items.size() * sizeof(Item)));
  buffer.release();
}

inline void fill(Indices& indices, const std::vector<std::uint32_t>& values) {
  fill(indices.buffer, values);
  indices.count = static_cast<int>(values.size());
}

template <class Item>
void use(QOpenGLShaderProgram& program, QOpenGLBuffer& buffer,
         std::initializer_list<Attribute> attributes) {
  buffer.bind();
  for (const Attribute& one : attributes) {
    program.enableAttributeArray(one.name);
    program.setAttributeBuffer(one.name, one.type, one.offset, one.values, sizeof(Item));
  }
  buffer.release();
}

/// Painters that draw on the same surface expect none of them.
inline void leave(QOpenGLShaderProgram& program, std::initializer_list<const char*> attributes) {
  for (const char* name : attributes) program.disableAttributeArray(name);
}

inline bool link(QOpenGLShaderProgram& program, const char* vertices, const char* fragments) {
  return program.addShaderFromSourceCode(QOpenGLShader::Vertex, vertices) &&
         program.addShaderFromSourceCode(QOpenGLShader::Fragment, fragments) && program.link();
}

/// An alpha of 128 stands for hatching.
using ColourBytes = std::array<std::uint8_t, 4>;

inline ColourBytes bytes_of(const QColor& colour, bool is_hatched) {
  constexpr std::uint8_t full = 255, hatched = 128;
  return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
          static_cast<std::uint8_t>(colour.blue()), is_hatched ? hatched : full};
}

inline std::array<float, 3> single(const picture::Point3& point) {
  return {static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z)};
}

}  // namespace aluframe::desktop
