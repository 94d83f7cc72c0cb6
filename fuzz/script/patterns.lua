local key, value = ('a = b'):match('([%w_]+)%s*=%s*([%w_]+)')
for w in ('one two'):gmatch('%a+') do key = key .. w end
return (('f(a(b)c)d'):gsub('%b()', '%0%%')), ('x'):rep(10):find('x-y')
