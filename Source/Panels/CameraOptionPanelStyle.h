// Style string of the camera options panel.
#pragma once

inline constexpr char CameraOptionPanelStyle[] = R"(
CameraOptionPanel, QWidget#optionContents { background-color: rgb(46,47,48); }
.QWidget { background: transparent; }
QScrollArea#optionScrollArea { background: transparent; border: none; }
QLabel { background: transparent; color: rgb(219,219,219); font-size: 12px; }
QLabel:disabled { color: #7d8185; }
QLabel#settingsLabel { color: white; font-size: 16px; font-weight: 600; }
QLabel[groupTitle="true"] { color: white; font-weight: 600; }
QLabel[rangeLabel="true"] { color: rgb(147,147,150); font-size: 11px; }
QFrame#frameTemperatureControl, QFrame#frameNucControl {
    background: transparent; border: none; border-top: 1px solid rgb(66,67,68); }

QLineEdit {
    background-color: rgb(37,38,39); border: 1px solid rgb(89,89,89); border-radius: 6px;
    color: #dbdbdb; font-size: 12px; padding: 3px 6px; selection-background-color: rgb(47,128,237); }
QLineEdit:hover:enabled { border-color: rgb(128,128,128); }
QLineEdit:focus { border-color: rgb(47,128,237); }
QLineEdit:disabled { color: #7d8185; }
QLineEdit#editActiveSetpoint { padding: 1px 0px 1px 3px; }

QComboBox {
    background-color: rgb(37,38,39); border: 1px solid rgb(89,89,89); border-radius: 6px;
    color: #dbdbdb; font-size: 12px; padding: 3px 6px; combobox-popup: 0; }
QComboBox:hover { border-color: rgb(128,128,128); }
QComboBox:focus, QComboBox:on { border-color: rgb(47,128,237); }
QComboBox:disabled { color: #7d8185; }
QComboBox::drop-down { border: none; width: 24px; }
QComboBox::down-arrow { image: url(:/icons/resources/chevron-down.svg); width: 14px; height: 14px; }
QComboBox QAbstractItemView {
    background-color: rgb(37,38,39); border: 1px solid rgb(89,89,89); color: #dbdbdb; font-size: 12px; outline: none;
    padding: 2px; selection-background-color: rgb(47,128,237); selection-color: white; }
QComboBox QAbstractItemView::item { min-height: 24px; padding: 0px 4px; }

QSlider { background: transparent; min-height: 20px; }
QSlider::groove:horizontal { background-color: rgb(31,31,31); border: none; border-bottom: 1px solid rgb(51,51,51);
    height: 1px; }
QSlider::handle:horizontal { background-color: rgb(114,114,114); border: none; border-radius: 2px;
    width: 14px; height: 18px; margin: -7px 0; }
QSlider::handle:horizontal:hover { background-color: rgb(147,147,150); }
QSlider::handle:horizontal:focus, QSlider::handle:horizontal:pressed { background-color: rgb(47,128,237); }
QSlider::handle:horizontal:disabled { background-color: rgb(63,63,65); }

QPushButton {
    background-color: rgb(66,67,68); border: 1px solid rgb(89,89,89); border-radius: 6px;
    color: rgb(219,219,219); font-size: 12px; padding: 4px 8px; }
QPushButton:hover { background-color: rgb(128, 128, 128); }
QPushButton:pressed { background-color: rgb(37,38,39); }
QPushButton:focus { border-color: rgb(47,128,237); }
QPushButton:disabled { background-color: rgba(63,63,65,40%); border-color: rgb(66,67,68); color: #7d8185; }

QPushButton#restoreDefaultButton, QPushButton#debayeringOnOff { padding: 4px; }
QPushButton#restoreDefaultButton { background-color: transparent; border-color: transparent; }
QPushButton#restoreDefaultButton:hover { background-color: rgb(128, 128, 128); }
QPushButton#restoreDefaultButton:focus { border-color: rgb(47,128,237); }

QPushButton#btnActivateSetpoint:checked {
    background-color: rgb(37,38,39); border-color: rgb(47,128,237); color: rgb(147,147,150); }

QPushButton[segment="first"], QPushButton[segment="middle"], QPushButton[segment="last"] {
    background-color: rgb(37,38,39); border-radius: 0px; padding: 4px 6px; }
QPushButton[segment="first"] {
    border-top-left-radius: 6px; border-bottom-left-radius: 6px; border-right: none; }
QPushButton[segment="last"] {
    border-top-right-radius: 6px; border-bottom-right-radius: 6px; border-left: none; }
QPushButton[segment]:hover { background-color: rgb(89,89,89); }
QPushButton[segment]:checked { background-color: rgb(47,128,237); color: white; }
QPushButton[segment]:focus { border: 1px solid rgb(160,200,255); }
QPushButton[segment]:disabled { background-color: rgba(63,63,65,40%); color: #7d8185; }
QPushButton[segment]:checked:disabled { background-color: rgba(82,82,82, 60); color: #7d8185; }
)";
