import QtQuick
import QtQuick.Window
import Lumeo.Kit
import Lumeo.Window

/// The picture of the inspected file as large as the window allows. Escape, Space or a click closes it.
ModalSurface {
    id: surface

    required property InspectorModel model

    width: parent ? parent.width - 2 * Theme.s32 : 0
    height: parent ? parent.height - 2 * Theme.s32 : 0
    padding: Theme.s12
    onAboutToShow: model.loadLargePicture(Qt.size(contentItem.width, contentItem.height), Screen.devicePixelRatio)
    onClosed: model.dropLargePicture()

    contentItem: FocusScope {
        focus: true
        Accessible.role: Accessible.Graphic
        Accessible.name: surface.model.name
        Keys.onSpacePressed: surface.close()

        Picture {
            id: picture

            anchors.fill: parent
            image: surface.model.largePicture // qmllint disable type
        }

        Symbol {
            anchors.centerIn: parent
            visible: picture.isEmpty
            name: surface.model.symbol
            size: 64
            color: Theme.textTertiary
        }

        TapHandler {
            onTapped: surface.close()
        }
    }
}
