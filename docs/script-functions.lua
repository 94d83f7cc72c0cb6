---@meta

-- What a script of a project can call, for script editors that read such annotations. Not to be run. Written by
-- "sgui functions --lua"; the same as a page: "sgui functions --markdown".

---Three numbers: a place {x, y, 0}, or a size {height, width, 0}.
---@class vec3
---@field [1] number
---@field [2] number
---@field [3] number
---@field x number
---@field y number
---@field z number

---Four numbers: a rectangle {left, top, right, bottom}, or a colour {r, g, b, a}, each 0 to 1.
---@class vec4
---@field [1] number
---@field [2] number
---@field [3] number
---@field [4] number
---@field x number
---@field y number
---@field z number
---@field w number
---@field r number
---@field g number
---@field b number
---@field a number

---显示/隐藏GUI: 显示或隐藏所有GUI元素
---@param mode 0|1|2 类别: 0=隐藏, 1=显示, 2=切换
function gui_script_show_gui(mode) end

---显示/隐藏对话框: 显示或隐藏指定对话框
---@param dialog string 对话框名称
---@param mode 0|1|2 类别: 0=隐藏, 1=显示, 2=切换
function gui_script_show_dialog(dialog, mode) end

---设置窗口大小: 设置窗口大小，以像素或百分比方式
---@param dialog string 对话框名称
---@param mode 0|1 类别: 0=像素大小, 1=屏幕百分比
---@param left_top vec3|number[] 左上角X/左上角Y
---@param right_bottom vec3|number[] 左下角X/左下角Y
---@param limit 0|1 是否开启窗口范围限制？: 0=关闭, 1=开启
function gui_script_set_wnd_size(dialog, mode, left_top, right_bottom, limit) end

---移动窗口: 以相对或绝对方式移动窗口，绝对方式是直接定位到屏幕位置，相对方式是将本控件的移动对齐点相对于相对坐标点移动指定长度
---@param dialog string 对话框名称
---@param mode 0|1 类别: 0=绝对坐标, 1=相对坐标
---@param point 0|1|2|3|4 移动对齐点: 0=左上角, 1=右上角, 2=左下角, 3=右下角, 4=中心
---@param origin vec3|number[] 相对坐标点：x/y
---@param position vec3|number[] 位置：x/y
function gui_script_move_wnd(dialog, mode, point, origin, position) end

---获取窗口矩形: 获取窗口矩形(左/上/右/下)
---@param dialog string 对话框名称
---@return vec4 # 当前窗口矩形
function get_wnd_rect(dialog) end

---设置窗口矩形: 设置窗口矩形(左/上/右/下)
---@param dialog string 对话框名称
---@param rect vec4|number[] 对话框矩形
function set_wnd_rect(dialog, rect) end

---判断鼠标是否在某对话框中: 判断鼠标是否在对话框中
---@param dialog string 对话框名称
---@return integer # 鼠标是否在当前对话框中
function b_mouse_in_dialog(dialog) end

---窗口对齐: 窗口对齐，被调整窗口按照对齐方式与标尺窗口对齐
---@param ruler string 标尺窗口
---@param align 0|1|2|3 对齐方式: 0=对齐到顶部, 1=对齐到底部, 2=对齐到左侧, 3=对齐到右侧
---@param moved string 被调整窗口
function wnd_align(ruler, align, moved) end

---矩形膨胀: 将矩形按指定输入膨胀
---@param rect vec4|number[] 输入(左/上/右/下)
---@param margins vec4|number[] 膨胀(左/上/右/下)
---@return vec4 # 膨胀后的矩形
function rect_inflate(rect, margins) end

---向量组合: 组合xyz成为x/y/z的向量模式
---@param x number 变量1
---@param y number 变量2
---@param z number 变量3
---@return vec3 # 组合向量
function vector_combo(x, y, z) end

---显示/隐藏控件: 显示或隐藏指定控件
---@param control string 控件名称
---@param mode 0|1|2 类别: 0=隐藏, 1=显示, 2=切换
function gui_script_show_ctrl(control, mode) end

---移动控件: 以相对或绝对方式移动控件
---@param control string 控件名称
---@param mode 0|1 类别: 0=绝对坐标, 1=相对坐标
---@param point 0|1|2|3|4 移动对齐点: 0=左上角, 1=右上角, 2=左下角, 3=右下角, 4=中心
---@param origin vec3|number[] 相对坐标点：x/y
---@param position vec3|number[] 位置：x/y
function gui_script_move_ctrl(control, mode, point, origin, position) end

---删除控件: 删除指定控件
---@param control string 控件名称
function gui_script_del_ctrl(control) end

---控件置顶/置底: 将指定控件置于其所在对话框的顶端或底端
---@param control string 控件名称
---@param layer 0|1 位置: 0=置底, 1=置顶
function gui_script_set_ctrl_layer(control, layer) end

---获取控件位置: 得到指定控件的绝对或相对位置
---@param control string 控件名称
---@param sample 0|1|2 采样点: 0=左上角, 1=中心, 2=右下角
---@param space 0|1 坐标系: 0=视图左上角, 1=父窗口左上角
---@return vec3 # 控件位置
function gui_script_ctrl_get_pos(control, sample, space) end

---控件与父窗口对齐距离: 设置指定控件与其父窗口左上角的相对位置
---@param control string 控件名称
---@param dx integer X方向偏移
---@param dy integer Y方向偏移
function ctrl_align_offset(control, dx, dy) end

---获取控件矩形: 获取控件矩形(左/上/右/下)
---@param control string 控件名称
---@return vec4 # 当前控件矩形
function get_ctrl_rect(control) end

---设置控件矩形: 设置控件矩形(左/上/右/下)
---@param control string 控件名称
---@param rect vec4|number[] 控件矩形
function set_ctrl_rect(control, rect) end

---获取控件尺寸: 获取控件尺寸(长/宽)
---@param control string 控件名称
---@return vec3 # 当前控件尺寸
function get_ctrl_size(control) end

---设置控件对齐方式: 设置控件与窗口对齐方式
---@param control string 控件名称
---@param align 0|1|2|3|4|5|6|7|8|9 对齐方式: 0=左上, 1=顶对齐, 2=右上, 3=右对齐, 4=右下, 5=底对齐, 6=左下, 7=左对齐, 8=中心对齐, 9=比例缩放
function ctrl_align(control, align) end

---设置控件尺寸: 以控件某点为基准，设置控件尺寸
---@param control string 控件名称
---@param base 0|1|2|3|4|5|6|7|8 基准中心: 0=左上, 1=顶对齐, 2=右上, 3=右对齐, 4=右下, 5=底对齐, 6=左下, 7=左对齐, 8=中心对齐
---@param size vec3|number[] 尺寸[长/宽]
function set_ctrl_size(control, base, size) end

---设置控件标题: 设置控件的标题文字
---@param control string 控件名称
---@param title string 标题
function set_ctrl_title(control, title) end

---设置控件可用: 设置控件是否可用，不可用则无点击效果且不执行控件脚本
---@param control string 控件名称
---@param usable boolean 是否可用: 可用
function set_ctrl_usable(control, usable) end

---设置控件窗口底图: 设置控件窗口底图，窗口底图始终在该窗口最底层
---@param control string 控件名称
---@param background boolean 是否窗口底图: 窗口底图
function set_ctrl_bkimage(control, background) end

---设置控件文字排布: 设置控件文字排布
---@param control string 控件名称
---@param text_align 0|1|2|3|4|5|6|7|8|9|10|11 排布方式: 0=左上, 1=左基线, 2=左垂直居中, 3=左下, 4=中上, 5=中基线, 6=中垂直居中, 7=中下, 8=右上, 9=右基线, 10=右垂直居中, 11=右下
function set_ctrl_txt_align(control, text_align) end

---设置控件文字字体: 设置控件文字选用哪个全局字体
---@param control string 控件名称
---@param font 0|1|2|3|4|5|6|7 全局字体: 0=字体一, 1=字体二, 2=字体三, 3=字体四, 4=字体五, 5=字体六, 6=字体七, 7=字体八
function set_ctrl_txt_font(control, font) end

---设置控件文字颜色: 设置控件文字颜色
---@param control string 控件名称
---@param color vec4|number[] 字体颜色(区间0~1)[r/g/b/a]
function set_ctrl_txt_color(control, color) end

---设置控件文字阴影: 设置控件文字是否渲染阴影
---@param control string 控件名称
---@param shadow boolean 是否渲染阴影: 渲染阴影
function set_ctrl_txt_shadow(control, shadow) end

---设置控件类型: 设置控件类型，图片按钮或静态图片
---@param control string 控件名称
---@param kind 0|1 类型: 0=图片按钮, 1=静态图片
function set_ctrl_type(control, kind) end

---设置控件背景色: 设置控件背景色
---@param control string 控件名称
---@param color vec4|number[] 背景颜色(区间0~1)[r/g/b/a]
function set_ctrl_bkcolor(control, color) end

---设置控件贴图: 设置控件的普通、划过、按下贴图
---@param control string 控件名称
---@param slot 0|1|2 贴图类型: 0=普通, 1=划过, 2=按下
---@param file string 贴图文件
---@return vec3 # 该贴图长/宽
function set_ctrl_texture(control, slot, file) end

---得到控件标题: 得到控件的标题
---@param control string 控件名称
---@return string # 控件标题
function get_ctrl_title(control) end

---得到控件可用状态: 得到控件可用状态，0为不可用，1为可用
---@param control string 控件名称
---@return integer # 控件可用状态
function get_ctrl_usable(control) end

---得到控件是否窗口底图: 得到控件是否窗口底图，0为不是底图，1为是底图
---@param control string 控件名称
---@return integer # 控件底图状态
function get_ctrl_bkimage(control) end

---得到控件文字字体: 得到控件文字字体所用系统字体的编号
---@param control string 控件名称
---@return integer # 控件所用系统字体编号
function get_ctrl_txt_font(control) end

---得到控件文字颜色: 得到控件文字颜色
---@param control string 控件名称
---@return vec4 # 文字颜色
function get_ctrl_txt_color(control) end

---得到控件文字阴影状态: 得到控件文字阴影状态，0为未开启，1为开启
---@param control string 控件名称
---@return integer # 控件文字阴影状态
function get_ctrl_txt_shadow(control) end

---得到控件类型: 得到控件类型，0为图片按钮，1为静态图片
---@param control string 控件名称
---@return integer # 控件类型
function get_ctrl_type(control) end

---得到控件对齐方式: 得到控件对齐方式，0=左上;1=顶对齐;2=右上;3=右对齐;4=右下;5=底对齐;6=左下;7=左对齐;8=中心对齐;9=比例缩放
---@param control string 控件名称
---@return integer # 对齐方式
function get_ctrl_align(control) end

---得到控件文字排布: 文字排布方式,0=左上;1=左基线;2=左垂直居中;3=左下;4=中上;5=中基线;6=中垂直居中;7=中下;8=右上;9=右基线;10=右垂直居中;11=右下
---@param control string 控件名称
---@return integer # 文字排布方式
function get_ctrl_txt_align(control) end

---得到控件背景色: 得到控件背景色
---@param control string 控件名称
---@return vec4 # 背景颜色
function get_ctrl_bkcolor(control) end

---得到控件贴图路径: 得到控件贴图路径
---@param control string 控件名称
---@param slot 0|1|2 贴图类型: 0=普通, 1=划过, 2=按下
---@return string # 控件贴图路径
function get_ctrl_texture(control, slot) end

-- The reference engine's own: the 3D scene behind the dialogs, and animations.

---Paints the object on the stage; red, green and blue, each 0 to 1.
---@param r number
---@param g number
---@param b number
function scene_paint(r, g, b) end

---Turns the object further.
---@param degrees number
function scene_turn(degrees) end

---How bright the light is: 1 as set up, 0 dark, 4 at most.
---@param level number
function scene_light(level) end

---Shows a line to whoever sits before the screen.
---@param value any
function message(value) end

---Plays from the beginning; goes on where it was paused.
---@param name string
function animation_start(name) end

---Stands still until it is started again.
---@param name string
function animation_pause(name) end

---Stands still; the next start is from the beginning.
---@param name string
function animation_stop(name) end

---Turns round and plays from where it stands; at its beginning it plays to the end, at its end to the beginning.
---@param name string
function animation_reverse(name) end

---Goes to that moment, which shows at once. What plays goes on from there; what does not is paused there.
---@param name string
---@param seconds number
function animation_seek(name, seconds) end

---Gives "stopped", "playing" or "paused", and the moment in seconds.
---@param name string
---@return string, number
function animation_state(name) end
