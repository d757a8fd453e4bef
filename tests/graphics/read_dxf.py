# Prints what ezdxf makes of DXF files: the audit, the tables, the entities. A line each, for a comparison; a
# line "end" behind every file.
import sys

import ezdxf


def read(path):
    document = ezdxf.readfile(path)
    audit = document.audit()
    lines = ["%s %s" % (document.dxfversion, document.encoding)]
    lines += ["error %s" % error.message for error in audit.errors]
    lines += ["fixed %s" % fix.message for fix in audit.fixes]
    # The reader adds layers of its own; those of the file name their line type in capitals.
    lines += ["layer %s %d" % (layer.dxf.name, layer.dxf.color)
              for layer in document.layers if layer.dxf.linetype == "CONTINUOUS"]
    for entity in document.modelspace():
        dxf = entity.dxf
        line = "%s %s %d" % (entity.dxftype(), dxf.layer, dxf.color)
        if entity.dxftype() == "LINE":
            line += " %.3f %.3f %.3f %.3f" % (dxf.start.x, dxf.start.y, dxf.end.x, dxf.end.y)
        elif entity.dxftype() == "CIRCLE":
            line += " %.3f %.3f %.3f" % (dxf.center.x, dxf.center.y, dxf.radius)
        else:
            line += " %.3f %.3f %.3f %.1f %s '%s'" % (dxf.insert.x, dxf.insert.y, dxf.height, dxf.rotation,
                                                      dxf.style, dxf.text)
        lines.append(line)
    return lines + ["end"]


for path in sys.argv[1:]:
    sys.stdout.buffer.write(("\n".join(read(path)) + "\n").encode("utf-8"))
